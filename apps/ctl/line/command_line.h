// The command line, read with the table of commands.
#ifndef CTL_COMMAND_LINE_H
#define CTL_COMMAND_LINE_H

namespace ctl {

// Does what the command line asks for; the exit status. Throws Failure.
int runCommandLine(int argc, char** argv);

} // namespace ctl

#endif
