// Makes the table of the characters that have a lower-case form, from the Unicode character data.
//
//   make_case_table <UnicodeData.txt> <header to write>
//
// In the data a line stands for a character. Its fields are divided by semicolons: the first one is
// the code, the fourteenth the code of the lower-case form, or empty; both hexadecimal.

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "tools/file_bytes.h"

namespace {

constexpr int kLowerCaseField = 13;

// Characters from First to Last, Step apart, each with its lower-case form Distance further on.
struct Range {
    std::int64_t First;
    std::int64_t Last;
    std::int64_t Step;
    std::int64_t Distance;
};

constexpr std::string_view kHead = R"(#pragma once

#include <cstdint>

// The characters that have a lower-case form. Made by tools/make_case_table.cpp, do not edit.

namespace toolkit {

/// Characters from First to Last, Step apart; the lower-case form of each lies Distance further on.
struct CaseRange {
    std::int32_t First;
    std::int32_t Last;
    std::int32_t Step;
    std::int32_t Distance;
};

// clang-format off
inline constexpr CaseRange kLowerCaseRanges[] = {
)";

constexpr std::string_view kTail = R"(};
// clang-format on

}  // namespace toolkit
)";

std::string Field(const std::string& line, int number) {
    std::istringstream fields(line);
    std::string field;
    for (int n = 0; n <= number; ++n) {
        if (!std::getline(fields, field, ';')) return {};
    }
    return field;
}

// Adds a character behind the others. A range of one takes any step up to 2.
void Add(std::vector<Range>& ranges, std::int64_t code, std::int64_t distance) {
    if (!ranges.empty()) {
        Range& last = ranges.back();
        const std::int64_t step = code - last.Last;
        const bool fits = last.First == last.Last ? step <= 2 : step == last.Step;
        if (fits && distance == last.Distance) {
            last.Last = code;
            last.Step = step;
            return;
        }
    }
    ranges.push_back({code, code, 1, distance});
}

std::vector<Range> RangesOf(const std::string& data) {
    std::vector<Range> ranges;
    std::istringstream lines(data);
    for (std::string line; std::getline(lines, line);) {
        const std::string lower = Field(line, kLowerCaseField);
        if (lower.empty()) continue;
        const std::int64_t code = std::stoll(line, nullptr, 16);
        Add(ranges, code, std::stoll(lower, nullptr, 16) - code);
    }
    return ranges;
}

std::string Header(const std::vector<Range>& ranges) {
    std::string header(kHead);
    for (const Range& range : ranges) {
        char row[64];
        std::snprintf(row, sizeof row, "    {0x%05llX, 0x%05llX, %lld, %lld},\n",
                      static_cast<unsigned long long>(range.First),
                      static_cast<unsigned long long>(range.Last),
                      static_cast<long long>(range.Step), static_cast<long long>(range.Distance));
        header += row;
    }
    return header.append(kTail);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::cerr << "Usage: make_case_table <UnicodeData.txt> <header to write>\n";
        return EXIT_FAILURE;
    }
    const auto data = tools::ReadFile(argv[1]);
    if (!data) return EXIT_FAILURE;
    const std::string header = Header(RangesOf(std::string(data->begin(), data->end())));
    const std::vector<std::uint8_t> bytes(header.begin(), header.end());
    return tools::WriteFile(argv[2], bytes) ? EXIT_SUCCESS : EXIT_FAILURE;
}
