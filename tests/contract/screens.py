"""The output of screen_tool, and the name by which it is run."""

import os

import programs

HELP = (
    b"\n"
    b"\x1b[34m####################################\x1b[0m\n"
    b"\x1b[37m\tscreen_tool\x1b[0m\n"
    b"\x1b[37m     The banner's own line\x1b[0m\n"
    b"\x1b[34m####################################\x1b[0m\n"
    b"\n"
    b"\x1b[36mShows what a command line holds.\x1b[0m\n"
    b"\x1b[36mUsage:\x1b[0m\n"
    b"  screen_tool [OPTIONS] FILE... \n"
    b"\n"
    b"\x1b[36mOptions:\x1b[0m\n"
    b"  \x1b[34m-n, --number:\x1b[0m a whole number\n"
    b"\n"
    b"  \x1b[34m-t, --text:\x1b[0m any text\n"
    b"\n"
    b"\n"
    b"\x1b[36mArguments:\x1b[0m\n"
    b"  \x1b[34mFILE:\x1b[0m a file that exists\n"
    b"\n"
    b"\n"
    b"\x1b[36mExample:\x1b[0m\n"
    b"  \x1b[34mscreen_tool\x1b[0m -n=3 notes.txt\n")

# std::exit runs exit handlers and destroys static objects, but not the local objects of main.
AFTER_HELP = b"exit handler called\nstatic object destroyed\n"
AFTER_RETURN = b"automatic object destroyed\nexit handler called\nstatic object destroyed\n"

# The help screen in 80 columns and 24 rows; its first row has scrolled out of sight.
HELP_ROWS = [
    "####################################",
    "        screen_tool",
    "     The banner's own line",
    "####################################",
    "",
    "Shows what a command line holds.",
    "Usage:",
    "  screen_tool [OPTIONS] FILE...",
    "",
    "Options:",
    "  -n, --number: a whole number",
    "",
    "  -t, --text: any text",
    "",
    "",
    "Arguments:",
    "  FILE: a file that exists",
    "",
    "",
    "Example:",
    "  screen_tool -n=3 notes.txt",
    "exit handler called",
    "static object destroyed",
    "",
]

# The same with colours; 39 is the default colour of the terminal.
COLOURED_HELP_ROWS = [
    "\x1b[34m####################################\x1b[39m",
    "        \x1b[37mscreen_tool\x1b[39m",
    "\x1b[37m     The banner's own line\x1b[39m",
    "\x1b[34m####################################\x1b[39m",
    "",
    "\x1b[36mShows what a command line holds.\x1b[39m",
    "\x1b[36mUsage:\x1b[39m",
    "  screen_tool [OPTIONS] FILE...",
    "",
    "\x1b[36mOptions:\x1b[39m",
    "  \x1b[34m-n, --number:\x1b[39m a whole number",
    "",
    "  \x1b[34m-t, --text:\x1b[39m any text",
    "",
    "",
    "\x1b[36mArguments:\x1b[39m",
    "  \x1b[34mFILE:\x1b[39m a file that exists",
    "",
    "",
    "\x1b[36mExample:\x1b[39m",
    "  \x1b[34mscreen_tool\x1b[39m -n=3 notes.txt",
    "exit handler called",
    "static object destroyed",
    "",
]

# A console that is not set to interpret escape sequences, as wine's console, shows them: the escape character as a column
# that tmux leaves out, the rest as text.
PLAIN_CONSOLE_HELP_ROWS = [
    "[34m####################################[0m",
    "[37m   screen_tool[0m",
    "[37m     The banner's own line[0m",
    "[34m####################################[0m",
    "",
    "[36mShows what a command line holds.[0m",
    "[36mUsage:[0m",
    "  screen_tool [OPTIONS] FILE...",
    "",
    "[36mOptions:[0m",
    "  [34m-n, --number:[0m a whole number",
    "",
    "  [34m-t, --text:[0m any text",
    "",
    "",
    "[36mArguments:[0m",
    "  [34mFILE:[0m a file that exists",
    "",
    "",
    "[36mExample:[0m",
    "  [34mscreen_tool[0m -n=3 notes.txt",
    "exit handler called",
    "static object destroyed",
    "",
]


def by_name(program):
    """Returns a program path that makes the tool name the bare file name. On Windows the tool name never has a folder."""
    if programs.ON_WINDOWS:
        return program
    folder, name = os.path.split(program)
    os.environ["PATH"] = folder + os.pathsep + os.environ["PATH"]
    return name
