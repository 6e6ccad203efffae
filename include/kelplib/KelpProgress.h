#ifndef KELPLIB_KELPPROGRESS_H
#define KELPLIB_KELPPROGRESS_H

/// \file
/// Progress on the console for any language: a bar that redraws its line, or a face of six lines that brightens.
/// Compiles as C99 and as C++17.
///
///     KELP_progress_global_init(8, 24, "reading ", 0);
///     for (int done = 1; done <= 8; ++done) {
///         work();
///         KELP_progress_global(done);
///     }
///     putchar('\n');  // the bar leaves the cursor on its line
///
/// Every line and frame is built in a fixed buffer and cut if it does not fit. It is passed to standard output as a whole
/// and flushed, so it leaves the process in one write (glibc writes a face line by line if it is the very first output to
/// a console). No memory is allocated. Texts are null-terminated; a null pointer counts as an empty text.
///
/// Not thread-safe: nothing here takes a lock, so only one thread at a time may report progress. Nothing throws.
///
/// All output goes through the C library's stdout; std::cout is not used. A program that has called
/// std::ios::sync_with_stdio(false) must flush std::cout before each drawing, or its own text appears later.

#include <kelplib/Export.h>

#ifdef __cplusplus
#include <cstddef>
extern "C" {
#else
#include <stddef.h>
#endif

/// The settings of the process-wide progress display. Programs may read and change them between calls.
struct KELP_GlobalProgressData {
    double total;             /**< the amount that means 100 % */
    int width;                /**< width of the bar in characters */
    char text[128];           /**< the label; not terminated if it is 128 characters long */
    double start_time;        /**< KELP_time_stamp at set-up, in seconds */
    double last_blink;        /**< KELP_time_stamp of the face's last blink, in seconds; 0 before the first */
    int smile;                /**< 1 draws the face, any other value the bar */
    const char* terminal_env; /**< the environment variable MSYSTEM at set-up; null if it was not set */
};

/// The process-wide progress display; all zero until KELP_progress_global_init sets it up.
extern KELP_API struct KELP_GlobalProgressData KELP_GlobalProgress;

/// Returns the seconds of a monotonic clock with an arbitrary start.
KELP_API double KELP_time_stamp(void);

/// Blocks the calling thread for at least `milliseconds`.
KELP_API void KELP_sleep(unsigned int milliseconds);

/// Flushes stdout, then moves the console's cursor up `lines` rows and to column 0.
/// \returns -1 if standard output is closed; 0 if it is not a console (nothing is written) or the console refuses the move;
///          any other value if the cursor was moved
KELP_API int KELP_rewind_cursor(unsigned int lines);

/// Draws the bar on the current line: label, percentage, bar and the time left, or the time spent once `value` reaches
/// `total`. The line ends in a carriage return, so the next call overwrites it; print a newline after the last call.
///
///     KELP_progress(3, 8, 24, "reading ", 0);  // reading  37.5% #########              |
///
/// \param value       the amount done, 0 or more. A negative value prints an error on standard output and ends the process
///                    with exit status 0
/// \param total       the amount that means 100 %. A total of 0 gives a line that is cut at about 500 characters
/// \param width       width of the bar in characters
/// \param text        the label. The percentage follows it directly, so a label usually ends in a space
/// \param start_time  KELP_time_stamp at the start of the work; 0 or less hides the time
/// \returns the result of flushing standard output: 0, or EOF if it fails. An unbuffered standard output has nothing to
///          flush, so the result is 0 even if the line was lost
KELP_API int KELP_progress(double value, double total, int width, const char* text, double start_time);

/// Sets up the process-wide display and starts its clock. Leaves last_blink unchanged.
/// \param total  the amount that means 100 %
/// \param width  width of the bar in characters
/// \param text   the label; only its first 127 characters are kept
/// \param smile  1 draws the face, any other value the bar. If MSYSTEM is in the environment, even with an empty value,
///               the bar is always drawn, because such terminals do not move their cursor
/// \returns 0
KELP_API int KELP_progress_global_init(double total, int width, const char* text, int smile);

/// Replaces the label. If it has `max_length` characters or more, "..." replaces so much of its middle that `max_length`
/// characters remain, or one less if `max_length` is odd:
///
///     text                   max_length   label
///     "reading the archive"  20           "reading the archive"
///     "reading the archive"  19           "readin...e archive"
///     "reading the archive"  16           "readi... archive"
///
/// \param text        the new label
/// \param max_length  from 6 to 128; a smaller value counts as 6, a larger one as 128
KELP_API void KELP_progress_global_set_text(const char* text, size_t max_length);

/// Draws the process-wide display, as the face or as the bar.
/// \param value  the amount done; a negative value ends the process if the bar is drawn, see KELP_progress
/// \returns the result of KELP_progress_smile or KELP_progress
KELP_API int KELP_progress_global(double value);

/// Draws the face: six lines with the label, the percentage, the bar and the time left, from the settings in
/// KELP_GlobalProgress.
///
/// On a console the cursor then returns to the first line, so the next call overwrites the face; elsewhere the frames
/// follow one another. When `value` reaches the total, the face cheers in three frames, which takes 300 ms. The last frame
/// stays, and the cursor is left below it.
///
/// The face blinks for 75 ms if more than 4 s have passed since last_blink. Because last_blink starts at 0, the first call
/// blinks too, unless the clock itself is not past 4 s (a system's first seconds). The call that reaches the total draws no
/// blink, but counts as one if one is due.
/// \returns the number of characters of the last frame; -1 if standard output cannot be written
KELP_API int KELP_progress_smile(double value);

#ifdef __cplusplus
}
#endif

#endif
