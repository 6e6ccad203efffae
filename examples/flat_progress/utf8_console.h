#ifndef FLAT_PROGRESS_UTF8_CONSOLE_H
#define FLAT_PROGRESS_UTF8_CONSOLE_H

/* Sets the console to UTF-8, the encoding of file names, until the process ends. Only a Windows console needs this. */
void use_utf8_console(void);

#endif
