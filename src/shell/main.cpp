#include "shell/program.h"

int main(int argc, char** argv)
{
    return shell::enterProgram(argc, argv);
}
