#include <getopt.h>

#include <cstdlib>

#include "settings.h"

namespace {

int numberIn(const char* text) {
    return static_cast<int>(std::strtol(text, nullptr, 10));
}

}  // namespace

int main(int argc, char** argv) {
    static const option options[] = {
        {"output", required_argument, nullptr, 'o'},
        {"number", required_argument, nullptr, 'n'},
        {"ratio", required_argument, nullptr, 'r'},
        {"width", required_argument, nullptr, 'w'},
        {"threads", required_argument, nullptr, 't'},
        {"separator", required_argument, nullptr, 's'},
        {"columns", required_argument, nullptr, 'c'},
        {"label", required_argument, nullptr, 'l'},
        {"force", no_argument, nullptr, 'f'},
        {"quiet", no_argument, nullptr, 'q'},
        {nullptr, 0, nullptr, 0},
    };
    Settings settings;
    for (int code = 0; (code = getopt_long(argc, argv, "o:n:r:w:t:s:c:l:fq", options, nullptr)) != -1;) {
        switch (code) {
            case 'o':
                settings.output = optarg;
                break;
            case 'n':
                settings.number = numberIn(optarg);
                break;
            case 'r':
                settings.ratio = std::strtod(optarg, nullptr);
                break;
            case 'w':
                settings.width = numberIn(optarg);
                break;
            case 't':
                settings.threads = numberIn(optarg);
                break;
            case 's':
                settings.separator = optarg;
                break;
            case 'c':
                settings.columns = optarg;
                break;
            case 'l':
                settings.label = optarg;
                break;
            case 'f':
                settings.force = true;
                break;
            case 'q':
                settings.quiet = true;
                break;
            default:
                return 1;
        }
    }
    settings.file = optind < argc ? argv[optind] : "";
    return checked(settings);
}
