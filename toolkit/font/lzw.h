#pragma once

#include <cstdint>
#include <span>
#include <vector>

// The compressed form of glyph data: LZW codes of one fixed width, without clear and end codes. Any
// thread.

/// Splits the bytes into codes of `width` bits, most significant bit first; bits left over at the
/// end are ignored. No codes for a width of 0. A code wider than 64 bits keeps its low 64 bits; a
/// code with bit 63 set is negative, which no valid stream holds.
[[nodiscard]] std::vector<std::int64_t> t_UnpackCodes(std::span<const std::uint8_t> bytes,
                                                      std::uint8_t width);

/// The bytes that the codes stand for; none for an invalid stream and for one that would give more
/// than 64 MiB.
[[nodiscard]] std::vector<std::uint8_t> t_LZWDecompress(std::span<const std::int64_t> codes);
