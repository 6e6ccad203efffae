// A program that does nothing; the C++ runtime is loaded with it. The floor of a start.

int main() {}
