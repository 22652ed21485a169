#pragma once

#include <array>
#include <cstdint>

// Character and number tables, built once by initvxtools on the main thread before the program
// thread starts and only read after that.

extern std::array<std::uint8_t, 256> t_UpperCaseTable;  // byte to upper-case byte (Latin-1)
extern std::array<std::uint8_t, 256> t_LowerCaseTable;  // byte to lower-case byte (Latin-1)
extern std::array<std::uint8_t, 16> t_HexDigits;        // 0 to 9, then A to F
extern std::array<std::int64_t, 256> t_HexValue;        // value of a hexadecimal digit, else -1

/// First-stage set-up: builds the tables. Main thread, once, at launch. Logs
///   "initvxtools: Start."  "initvxtools: End."
void initvxtools();
