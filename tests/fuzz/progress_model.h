#ifndef KELPLIB_TESTS_FUZZ_PROGRESS_MODEL_H
#define KELPLIB_TESTS_FUZZ_PROGRESS_MODEL_H

#include <climits>
#include <cmath>
#include <cstdio>
#include <string>
#include <vector>

/// Builds the bar's line and the face's frames in the simplest way.
namespace progress_model {

struct Display {
    double value;
    double total;
    int width;
    double startTime;
    double now;
    double lastBlink;
    std::string label;
};

/// Room for a line; longer lines are cut.
inline constexpr std::size_t lineRoom = 512;

inline int whole(double number) {
    return number > -2147483649.0 && number < 2147483648.0 ? static_cast<int>(number) : INT_MIN;
}

inline std::string tenths(double number) {
    char text[400];
    static_cast<void>(std::snprintf(text, sizeof text, "%.1f", number));
    return text;
}

/// Builds the body of the bar one character at a time, up to the length of a line.
inline std::string body(int width, double ratio) {
    std::string text;
    const double filled = width * ratio;
    for (int k = 0; filled > k && text.size() < lineRoom; ++k) {
        text += '#';
    }
    for (long long i = whole(filled); i < static_cast<long long>(width) - 1 && text.size() < lineRoom; ++i) {
        text += ' ';
    }
    return text;
}

inline int leftSeconds(const Display& display) {
    const double percent = 100.0 * (display.value / display.total);
    const double elapsed = display.now - display.startTime;
    return whole((elapsed * 100.0 / percent + (display.startTime - display.now)) * (1.35 - percent * 0.01));
}

inline std::string barTime(const Display& display, bool running) {
    if (running) {
        const int left = leftSeconds(display);
        return " time left: " + (left <= 59     ? std::to_string(left) + " secs  "
                                 : left >= 3600 ? std::to_string(left / 3600) + " hours "
                                                : std::to_string(left / 60) + " mins  ");
    }
    const double elapsed = display.now - display.startTime;
    return " done in: " + (elapsed < 60.0     ? tenths(elapsed) + " secs  "
                           : elapsed < 3600.0 ? tenths(elapsed * (1.0 / 60.0)) + " mins  "
                                              : tenths(elapsed * (1.0 / 3600.0)) + " hours ");
}

inline std::string bar(const Display& display) {
    const double ratio = display.value / display.total;
    std::string line = display.label;
    if (ratio < 1.0) {
        line += (ratio < 0.1 ? "  " : " ") + tenths(100.0 * ratio) + "% ";
    } else {
        line += "100.0% ";
    }
    line += body(display.width, ratio);
    line.resize(std::min(line.size(), lineRoom - 1));
    line += ratio < 1.0 ? "|" : "#";
    if (display.startTime > 0.0) {
        line += barTime(display, ratio < 1.0);
    }
    return line.substr(0, lineRoom - 1) + "\r";
}

inline std::string faceTime(const char* prefix, int seconds) {
    return prefix + (seconds < 60     ? std::to_string(seconds) + " secs      \n"
                     : seconds < 3600 ? std::to_string(seconds / 60) + " mins      \n"
                                      : std::to_string(seconds / 3600) + " hours     \n");
}

inline std::string headOf(const Display& display) {
    return "     _____\n    /     \\         " + display.label + "\n";
}

inline std::string runningFrame(const Display& display, bool eyesClosed) {
    const double ratio = display.value / display.total;
    const std::string eyes = eyesClosed ? "_ _" : ratio < 0.4 || !(ratio < 0.9) ? "* *" : ratio < 0.8 ? ". ." : "o o";
    const std::string mouth = ratio < 0.25 ? " / \\ " : ratio < 0.6 ? " --- " : " \\_/ ";
    std::string bar =
        "        " + tenths(100.0 * ratio) + "% " + body(display.width, display.value / std::round(display.total));
    bar = bar.substr(0, lineRoom) + "|  ";
    return headOf(display) + "   /  " + eyes + "  \\\n   >   " + (ratio < 0.25 ? "_" : " ") + "   <" +
           bar.substr(0, lineRoom) + "\n   \\ " + mouth + " /\n    \\_____/" +
           faceTime("         time remaining: ", leftSeconds(display));
}

inline std::string finishedFrame(const Display& display, const char* eyes) {
    return headOf(display) + "   /  " + eyes + "  \\\n   > \\   / <       100.0%\n   \\  \\_/  /\n    \\_____/" +
           faceTime("         time spent:  ", whole(display.now - display.startTime));
}

/// The output of one call.
struct Face {
    std::string frames;
    std::size_t lastFrame = 0;
    std::size_t moves = 0;
    std::vector<unsigned int> pauses;
    bool blinks = false;
};

inline Face face(const Display& display) {
    Face face;
    face.blinks = display.now - display.lastBlink > 4.0;
    std::string last;
    if (display.value / display.total < 1.0) {
        face.frames = face.blinks ? runningFrame(display, true) : "";
        face.pauses = face.blinks ? std::vector<unsigned int>{75} : std::vector<unsigned int>{};
        face.moves = face.blinks ? 2 : 1;
        last = runningFrame(display, false);
    } else {
        face.frames = finishedFrame(display, "^ ^") + finishedFrame(display, "_ _");
        face.pauses = {150, 150};
        face.moves = 2;
        last = finishedFrame(display, "^ ^");
    }
    face.frames += last;
    face.lastFrame = last.size();
    return face;
}

}  // namespace progress_model

#endif
