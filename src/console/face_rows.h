#ifndef KELPLIB_CONSOLE_FACE_ROWS_H
#define KELPLIB_CONSOLE_FACE_ROWS_H

/// The rows of the face and the expressions that combine them. Data only.
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

/// The height of a face in screen lines.
inline constexpr unsigned int lines = 6;

struct Expression {
    double below;  ///< the expression is shown while the ratio of finished work is below this
    const char* eyes;
    const char* middle;
    const char* mouth;
};

/// The expressions of running work, boundaries ascending.
inline constexpr Expression running[] = {
    {0.25, starEyes, cheeksWithNose, frown}, {0.4, starEyes, cheeks, flatMouth}, {0.6, dotEyes, cheeks, flatMouth},
    {0.8, dotEyes, cheeks, smile},           {0.9, roundEyes, cheeks, smile},    {1.0, starEyes, cheeks, smile},
};

struct ClosingFrame {
    const char* eyes;
    unsigned int pauseMilliseconds;  ///< until the next frame replaces this one; 0 for the last frame
};

inline constexpr ClosingFrame closing[] = {{happyEyes, 150}, {closedEyes, 150}, {happyEyes, 0}};

}  // namespace Kelp::face

#endif
