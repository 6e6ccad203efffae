#ifndef COMMON_UTF8_CONSOLE_H
#define COMMON_UTF8_CONSOLE_H

#ifdef __cplusplus
extern "C" {
#endif

/// Sets the console to UTF-8, the encoding of file names, until the process ends. Only a Windows console needs this.
void common_use_utf8_console(void);

#ifdef __cplusplus
}
#endif

#endif
