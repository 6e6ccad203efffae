#ifndef KELPLIB_KELPPROGRESS_H
#define KELPLIB_KELPPROGRESS_H

/// \file
/// Progress on the console for any language: a bar that redraws its line, or a face that brightens. Compiles as C99 and as
/// C++17.
///
/// A call builds its line or its frame in fixed buffers, hands it to standard output as a whole, and flushes, so it leaves
/// the process with one write (a face that is the very first output to a console leaves glibc line by line); nothing is
/// allocated. What does not fit the buffers is cut. Texts are zero-terminated; a null pointer counts as an empty text.
///
/// Nothing here takes a lock: one thread at a time reports. Nothing throws.
///
/// All output goes through the C library's stdout; std::cout is left alone. A program that has called
/// std::ios::sync_with_stdio(false) flushes std::cout before it draws, or its own text comes out later.

#include <kelplib/Export.h>

#ifdef __cplusplus
#include <cstddef>
extern "C" {
#else
#include <stddef.h>
#endif

/// The settings of the process-wide progress display, open to be read and changed between two calls.
struct KELP_GlobalProgressData {
    double total;             /**< the value that means 100 % */
    int width;                /**< width of the bar in characters */
    char text[128];           /**< the label; 128 characters long it fills the field and has no terminator */
    double start_time;        /**< KELP_time_stamp at set-up, in seconds */
    double last_blink;        /**< KELP_time_stamp of the face's last blink, in seconds; 0 before the first */
    int smile;                /**< 1 draws the face, anything else the bar */
    const char* terminal_env; /**< the environment variable MSYSTEM at set-up; null when it was not set */
};

/// The one display of the process; all zero until it is set up.
extern KELP_API struct KELP_GlobalProgressData KELP_GlobalProgress;

/// Seconds of a monotonic clock with an arbitrary start.
KELP_API double KELP_time_stamp(void);

/// Blocks the calling thread for at least `milliseconds`.
KELP_API void KELP_sleep(unsigned int milliseconds);

/// Flushes stdout, then moves the console's cursor up `lines` rows and to column 0.
/// \returns -1 when standard output is closed; 0 when it is no console, with nothing written, or when the console refuses;
///          another value when the cursor was moved
KELP_API int KELP_rewind_cursor(unsigned int lines);

/// Draws the bar on the current line: label, percentage, bar, and the time left, or the time spent once `value` reaches
/// `total`. It ends in a carriage return, so that the next call overwrites it; print a line end after the last one.
/// \param value       the amount done, 0 or more. A negative one is told on standard output and ends the process with exit
///                    status 0
/// \param total       the amount that means 100 %; with 0 the line is cut, some 500 characters long
/// \param width       width of the bar in characters
/// \param text        the label, directly followed by the percentage
/// \param start_time  KELP_time_stamp taken when the work began; 0 or less shows no time
/// \returns what flushing standard output gives: 0, or EOF when it fails. A standard output without a buffer has nothing
///          to flush
KELP_API int KELP_progress(double value, double total, int width, const char* text, double start_time);

/// Sets the process-wide display up and starts its clock. last_blink stays as it is.
/// \param total  the amount that means 100 %
/// \param width  width of the bar in characters
/// \param text   the label; of 128 characters or more the first 127 are kept
/// \param smile  1 draws the face, anything else the bar. With MSYSTEM in the environment, whatever its value, the bar is
///               drawn: such terminals do not move their cursor
/// \returns 0
KELP_API int KELP_progress_global_init(double total, int width, const char* text, int smile);

/// Replaces the label. One that has `max_length` characters or more is shortened from its middle, with "..." in it, to
/// `max_length` characters, one less when that is odd.
/// \param max_length  from 6 to 128; a smaller one counts as 6, a larger one as 128
KELP_API void KELP_progress_global_set_text(const char* text, size_t max_length);

/// Draws the process-wide display, the face or the bar.
/// \returns what KELP_progress_smile or KELP_progress returns
KELP_API int KELP_progress_global(double value);

/// Draws the face: six lines with the label, the bar and the time left, from the settings of KELP_GlobalProgress. On a
/// console the cursor then returns to the first of them; elsewhere the frames follow each other. Once `value` reaches
/// `total` it cheers in three frames (300 ms) and stays, with the cursor below it. At most once in 4 s it blinks (75 ms):
/// when KELP_time_stamp() - last_blink is above 4 s. last_blink starts at 0, so the first call blinks, except while the clock
/// itself is not past 4 s (a system's first seconds).
/// \returns the number of characters of the last frame; -1 when standard output cannot be written
KELP_API int KELP_progress_smile(double value);

#ifdef __cplusplus
}
#endif

#endif
