// Output files as the library completes them: path_tool [-o=NAME...] prints each with its folder and its delimiter, then
// the current directory.
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
