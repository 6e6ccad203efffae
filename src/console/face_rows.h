#ifndef KELPLIB_CONSOLE_FACE_ROWS_H
#define KELPLIB_CONSOLE_FACE_ROWS_H

/// The rows that faces are put together from, and which of them belong to which part of the work. Data only.
namespace Kelp::face {

inline constexpr char head[] = "     _____\n    /     \\";

inline constexpr char closedEyes[] = "   /  _ _  \\\n";
inline constexpr char starEyes[] = "   /  * *  \\\n";
inline constexpr char dotEyes[] = "   /  . .  \\\n";
inline constexpr char roundEyes[] = "   /  o o  \\\n";
inline constexpr char happyEyes[] = "   /  ^ ^  \\\n";

inline constexpr char cheeks[] = "   >       <";
inline constexpr char cheeksWithNose[] = "   >   _   <";
inline constexpr char cheeringCheeks[] = "   > \\   / <";

inline constexpr char frown[] = "   \\  / \\  /\n    \\_____/";
inline constexpr char flatMouth[] = "   \\  ---  /\n    \\_____/";
inline constexpr char smile[] = "   \\  \\_/  /\n    \\_____/";

/// How many screen lines a face has.
inline constexpr unsigned int lines = 6;

struct Expression {
    double below;  ///< shown while the ratio of the work done is below this
    const char* eyes;
    const char* middle;
    const char* mouth;
};

/// From the beginning of the work to its end, boundaries ascending.
inline constexpr Expression running[] = {
    {0.25, starEyes, cheeksWithNose, frown}, {0.4, starEyes, cheeks, flatMouth}, {0.6, dotEyes, cheeks, flatMouth},
    {0.8, dotEyes, cheeks, smile},           {0.9, roundEyes, cheeks, smile},    {1.0, starEyes, cheeks, smile},
};

struct ClosingFrame {
    const char* eyes;
    unsigned int pauseMilliseconds;  ///< before the next frame covers this one; 0: it stays
};

inline constexpr ClosingFrame closing[] = {{happyEyes, 150}, {closedEyes, 150}, {happyEyes, 0}};

}  // namespace Kelp::face

#endif
