// The desktop program: the workbench, drawn with Qt and worked by a person. It has no command line.
#include "app/desktop_program.h"

int main(int /*argument_count*/, char** arguments) { return koprax::RunDesktop(arguments[0]); }
