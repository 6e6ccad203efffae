// Prints output files with the folder and the delimiter that the library gives them, and the current directory:
// path_tool [-o=NAME...]
#include <kelplib/CommandLineTool.h>

#include <iostream>

int main(int argc, char** argv) {
    CommandLineTool tool(argc, argv, "Shows paths.", Kelp::Option("-o", "--output", "an output file", true));
    std::vector<FilePath> files;
    tool.getOutFiles(files, 0);
    for (const FilePath& file : files) {
        std::cout << "<" << file.getPath() << "|" << file.getName() << "> delimiter " << file.getDelim() << "\n";
    }
    std::cout << "in <" << FilePath::getCurrentDir() << ">\n";
}
