#include "tests/examples/played.h"

korvandi::Script PersonsScript() {
    return {
        korvandi::Wait{500},
        korvandi::Keys{"Zoé Müller\r1984\r"},
        korvandi::Wait{500},
        korvandi::LookAtScreen{"greeting"},
    };
}
