// A program that only loads the C++ runtime: the limit for the start of a tool.

int main() {}
