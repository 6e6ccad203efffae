// Uses one of each kind of interface: the class, a template, an exception that the library throws, and the object that tool
// and library share.
#include <kelplib/CommandLineTool.h>
#include <kelplib/KelpProgress.h>

#include <iostream>
#include <stdexcept>

int main(int argc, char** argv) {
    std::vector<Kelp::Option> options{{"-n", "--numbers", "the numbers", true}};
    const CommandLineTool tool(argc, argv, "Shows numbers.", options);
    Kelp::OptionReader values(argc, argv);
    std::vector<double> numbers;
    values.getValue("-n", "--numbers", numbers, 1);
    std::cout << std::to_string(numbers) << "\n";
    try {
        std::cout << FilePath("x").filePath() << "\n";
    } catch (const std::out_of_range&) {
        std::cout << "caught\n";
    }
    KELP_progress_global_init(10, 4, "from the tool ", 0);
    KELP_GlobalProgress.start_time = 0;
    KELP_progress_global(5);
    std::cout << "\n";
}
