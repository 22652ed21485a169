#pragma once

// Starts the platform under test in this process. The calling thread becomes its main thread; time
// passes there.
void StartPlatform(int argc, char** argv);
