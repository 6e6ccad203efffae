#ifndef COMMON_UTF8_CONSOLE_H
#define COMMON_UTF8_CONSOLE_H

#ifdef __cplusplus
extern "C" {
#endif

/// Lets the console show what this process writes as UTF-8, until the process ends. Only a console of Windows has another
/// encoding than the names of files.
void common_use_utf8_console(void);

#ifdef __cplusplus
}
#endif

#endif
