// checksum: prints the CRC-32 checksums of files, and shows its progress.

#include <kelpkit/Tool.h>

#include <iomanip>
#include <iostream>
#include <numeric>
#include <sstream>

namespace {

std::uint32_t addByte(std::uint32_t sum, char byte) {
    sum ^= static_cast<unsigned char>(byte);
    for (int bit = 0; bit < 8; ++bit) {
        sum = (sum >> 1U) ^ (sum % 2 == 0 ? 0 : 0xEDB88320);
    }
    return sum;
}

std::uint32_t checksumOf(const std::string& name, Kelpkit::Progress& progress) {
    Kelpkit::InputFile input(name, std::ios::binary);
    std::string block(65536, '\0');
    std::uint32_t sum = 0xFFFFFFFF;
    while (input.stream()) {
        const auto count = input.stream().read(block.data(), 65536).gcount();
        sum = std::accumulate(block.begin(), block.begin() + count, sum, addByte);
        progress.advance(static_cast<std::uintmax_t>(count));
    }
    return ~sum;
}

int printChecksums(Kelpkit::CommandLine& line) {
    std::uintmax_t bytes = 0;
    for (const std::string& name : line.arguments()) {
        bytes += Kelpkit::sizeOf(name);
    }
    Kelpkit::noteInterruptions();
    Kelpkit::Progress progress(bytes, "reading");
    std::ostringstream lines;
    for (const std::string& name : line.arguments()) {
        lines << std::hex << std::setw(8) << std::setfill('0') << checksumOf(name, progress) << " "
              << Kelpkit::printable(name) << "\n";
    }
    progress.finish();
    std::cout << lines.str();
    return EXIT_SUCCESS;
}

}  // namespace

int main(int argc, char** argv) {
    const Kelpkit::Definition tool{"checksum",
                                   "Prints the CRC-32 checksum of each file.",
                                   {{"-h", "--help", "shows this help", Kelpkit::isSwitch}},
                                   {{"FILE", "a file to read", true}},
                                   "film.mp4 copy.mp4"};
    return Kelpkit::run(tool, argc, argv, printChecksums);
}
