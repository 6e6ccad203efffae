#ifndef KELPLIB_CONSOLE_FACE_FRAME_H
#define KELPLIB_CONSOLE_FACE_FRAME_H

#include <string_view>

#include "console/bounded_text.h"

namespace Kelp {

/// What a face shows at one moment.
struct FaceState {
    double value;
    double total;
    int width;
    std::string_view label;  ///< at most 128 characters
    double startTime;
    double now;

    double ratio() const {
        return value / total;
    }
    bool isRunning() const {
        return ratio() < 1.0;
    }
};

/// A buffer of this size holds every frame whole: its lines may be cut, its rows never.
inline constexpr std::size_t frameCapacity = 1024;

/// Appends the frame of unfinished work: a face for its ratio, the bar and the time left.
void appendRunningFrame(BoundedText& frame, const FaceState& state, bool eyesClosed);

/// Appends a frame of finished work: the cheering face with the given eyes, and the time spent.
void appendFinishedFrame(BoundedText& frame, const FaceState& state, const char* eyes);

}  // namespace Kelp

#endif
