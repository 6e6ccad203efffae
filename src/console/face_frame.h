#ifndef KELPLIB_CONSOLE_FACE_FRAME_H
#define KELPLIB_CONSOLE_FACE_FRAME_H

#include <string_view>

#include "console/bounded_text.h"

namespace Kelp {

/// Everything that a frame of the face shows.
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

/// The size of a buffer that holds every frame. The line of the bar may be cut; the six rows are always complete.
inline constexpr std::size_t frameCapacity = 1024;

/// Appends the frame of unfinished work: the face for its ratio, the bar and the time left.
void appendRunningFrame(BoundedText& frame, const FaceState& state, bool eyesClosed);

/// Appends a frame of finished work: the cheering face with `eyes`, and the time spent.
void appendFinishedFrame(BoundedText& frame, const FaceState& state, const char* eyes);

}  // namespace Kelp

#endif
