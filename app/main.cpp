#include "game/demo_program.h"
#include "korvandi.h"

int main(int argc, char** argv) {
    return korvandi::Run(argc, argv, "Korvandi", DemoProgram);
}
