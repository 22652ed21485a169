#include "bench/ratio_table.h"
#include "bench/screen.h"

int main(int argc, char** argv) {
    TheScreen();
    AddFramePairs();
    AddTextPairs();
    AddDemonstrationPairs();
    return RunPairs(argc, argv);
}
