#include "tools/graphic_glyphs.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "tools/shapes.h"

namespace tools {
namespace {

// Codes 0 to 14: ink in the quarters whose bit is clear in the code.
struct QuarterRow {
    int Bit;
    Box Place;
};

constexpr QuarterRow kQuarters[] = {
    {1, {kMiddleX, kMiddleY, kCellWidth, kCellHeight}},  // lower right
    {2, {0, kMiddleY, kMiddleX, kCellHeight}},           // lower left
    {4, {kMiddleX, 0, kCellWidth, kMiddleY}},            // upper right
    {8, {0, 0, kMiddleX, kMiddleY}},                     // upper left
};
constexpr int kLastQuarterCode = 14;

// Line-drawing pieces: what runs from the middle of the cell to each of its edges.
enum class Arm : std::uint8_t { None, Light, Heavy, Double };

struct LineRow {
    int Code;
    Arm Left;
    Arm Up;
    Arm Right;
    Arm Down;
};

constexpr Arm kNo = Arm::None;
constexpr Arm kLi = Arm::Light;
constexpr Arm kHe = Arm::Heavy;
constexpr Arm kDo = Arm::Double;

// clang-format off
constexpr LineRow kLines[] = {
    //    left up   right down
    {131, kDo, kNo, kDo, kNo},  // double horizontal
    {138, kNo, kLi, kNo, kLi},  // vertical
    {139, kNo, kHe, kNo, kHe},  // heavy vertical
    {140, kLi, kNo, kLi, kNo},  // horizontal
    {141, kHe, kNo, kHe, kNo},  // heavy horizontal
    {142, kNo, kNo, kLi, kLi},  // upper left corner
    {143, kLi, kNo, kNo, kLi},  // upper right corner
    {144, kNo, kLi, kLi, kNo},  // lower left corner
    {145, kLi, kLi, kNo, kNo},  // lower right corner
    {146, kNo, kLi, kLi, kLi},  // tee to the right
    {147, kLi, kLi, kNo, kLi},  // tee to the left
    {148, kLi, kNo, kLi, kLi},  // tee down
    {149, kLi, kLi, kLi, kNo},  // tee up
    {150, kLi, kLi, kLi, kLi},  // cross
    {151, kNo, kNo, kDo, kDo},  // double upper left corner
    {152, kDo, kNo, kNo, kDo},  // double upper right corner
    {153, kNo, kDo, kDo, kNo},  // double lower left corner
    {156, kLi, kNo, kLi, kNo},  // the rule below a text line; goes on in the pieces above
    {157, kNo, kDo, kNo, kDo},  // double vertical
    {158, kDo, kDo, kNo, kNo},  // double lower right corner
};
// clang-format on

int LineWidth(Arm arm, const Strokes& strokes) {
    switch (arm) {
        case Arm::Light:
            return strokes.Light;
        case Arm::Heavy:
            return strokes.Heavy;
        case Arm::Double:
            return strokes.Double;
        case Arm::None:
            break;
    }
    return 0;
}

// The four arms of a piece with the width that `width` gives each. Every arm passes the middle by
// half its own width, which closes the corners; a width of 0 draws nothing.
template <typename Width>
void DrawArms(Cell& cell, const LineRow& row, std::uint8_t ink, Width width) {
    const int left = width(row.Left) / 2;
    const int up = width(row.Up) / 2;
    const int right = width(row.Right) / 2;
    const int down = width(row.Down) / 2;
    if (left > 0) Fill(cell, {0, kMiddleY - left, kMiddleX + left, kMiddleY + left}, ink);
    if (up > 0) Fill(cell, {kMiddleX - up, 0, kMiddleX + up, kMiddleY + up}, ink);
    if (right > 0) {
        Fill(cell, {kMiddleX - right, kMiddleY - right, kCellWidth, kMiddleY + right}, ink);
    }
    if (down > 0) {
        Fill(cell, {kMiddleX - down, kMiddleY - down, kMiddleX + down, kCellHeight}, ink);
    }
}

// A double line is one wide line with a gap cut along its middle.
void DrawLinePiece(Cell& cell, const LineRow& row, const Strokes& strokes) {
    DrawArms(cell, row, 255, [&](Arm arm) { return LineWidth(arm, strokes); });
    DrawArms(cell, row, 0, [&](Arm arm) { return arm == Arm::Double ? strokes.Gap : 0; });
}

void DrawRoundCorner(Cell& cell, int width, bool fromLeft, bool fromTop) {
    Cover(cell, [=](double x, double y) {
        return InRoundCorner(fromLeft ? kCellWidth - x : x, fromTop ? kCellHeight - y : y, width);
    });
}

void RoundUpperLeft(Cell& cell, const Strokes& s) {
    DrawRoundCorner(cell, s.Light, false, false);
}
void RoundUpperRight(Cell& cell, const Strokes& s) {
    DrawRoundCorner(cell, s.Light, true, false);
}
void RoundLowerLeft(Cell& cell, const Strokes& s) {
    DrawRoundCorner(cell, s.Light, false, true);
}
void RoundLowerRight(Cell& cell, const Strokes& s) {
    DrawRoundCorner(cell, s.Light, true, true);
}

void Blank(Cell&, const Strokes&) {}

template <int Ink>
void Shade(Cell& cell, const Strokes&) {
    Fill(cell, kWholeCell, Ink);
}

template <int Eighths>
void LowerEighths(Cell& cell, const Strokes&) {
    Fill(cell, {0, kCellHeight - kCellHeight / 8 * Eighths, kCellWidth, kCellHeight});
}

void RisingDiagonal(Cell& cell, const Strokes& s) {
    Cover(cell, [&](double x, double y) { return InDiagonal(x, y, s.Light); });
}

void FallingDiagonal(Cell& cell, const Strokes& s) {
    Cover(cell, [&](double x, double y) { return InDiagonal(kCellWidth - x, y, s.Light); });
}

void LowerLeftTriangle(Cell& cell, const Strokes&) {
    Cover(cell, [](double x, double y) { return y >= kSlope * x; });
}

void LowerRightTriangle(Cell& cell, const Strokes&) {
    Cover(cell, [](double x, double y) { return y >= kSlope * (kCellWidth - x); });
}

// Upright arrows have the height of a capital; the others begin at the edge of the cell, where a
// horizontal line piece may lead to them.
constexpr double kUprightArrow = 20;
constexpr double kLevelArrow = kCellWidth - 0.5;

void UpArrow(Cell& cell, const Strokes& s) {
    Cover(cell, [&](double x, double y) {
        return InArrow(kMiddleY + kUprightArrow / 2 - y, x - kMiddleX, kUprightArrow, s.Light);
    });
}

void DownArrow(Cell& cell, const Strokes& s) {
    Cover(cell, [&](double x, double y) {
        return InArrow(y - kMiddleY + kUprightArrow / 2, x - kMiddleX, kUprightArrow, s.Light);
    });
}

void LeftArrow(Cell& cell, const Strokes& s) {
    Cover(cell, [&](double x, double y) {
        return InArrow(kCellWidth - x, y - kMiddleY, kLevelArrow, s.Light);
    });
}

void RightArrow(Cell& cell, const Strokes& s) {
    Cover(cell, [&](double x, double y) { return InArrow(x, y - kMiddleY, kLevelArrow, s.Light); });
}

void Heart(Cell& cell, const Strokes&) {
    Cover(cell, InHeart);
}

void Star(Cell& cell, const Strokes&) {
    Cover(cell, InStar);
}

void Disc(Cell& cell, const Strokes&) {
    Cover(cell, [](double x, double y) { return InDisc(x, y, kMiddleX, kMiddleY, 7); });
}

void Checkers(Cell& cell, const Strokes&) {
    constexpr int kSide = 4;
    for (int y = 0; y < kCellHeight; y += kSide) {
        for (int x = y % (2 * kSide); x < kCellWidth; x += 2 * kSide) {
            Fill(cell, {x, y, x + kSide, y + kSide});
        }
    }
}

void Lattice(Cell& cell, const Strokes& s) {
    Cover(cell, [&](double x, double y) { return InLattice(x, y, s.Light / 2.0 + 0.5); });
}

void Stripes(Cell& cell, const Strokes& s) {
    for (int y = (kPeriod - s.Light) / 2; y < kCellHeight; y += kPeriod) {
        Fill(cell, {0, y, kCellWidth, y + s.Light});
    }
}

// `count` pieces of a horizontal line, each `length` pixels long, evenly spaced.
void DrawPieces(Cell& cell, int width, int count, int length) {
    const int period = kCellWidth / count;
    for (int left = (period - length) / 2; left < kCellWidth; left += period) {
        Fill(cell, {left, kMiddleY - width / 2, left + length, kMiddleY + width / 2});
    }
}

// One alone is an en dash, a row of them a dashed line.
void Dash(Cell& cell, const Strokes& s) {
    DrawPieces(cell, s.Light, 1, 12);
}

void Dots(Cell& cell, const Strokes& s) {
    DrawPieces(cell, s.Light, 8 / s.Light, s.Light);
}

// A flat bracket at the base line: a space made visible.
void OpenBox(Cell& cell, const Strokes& s) {
    constexpr int kLeft = 2;
    constexpr int kRight = kCellWidth - kLeft;
    constexpr int kBottom = 28;
    const int width = std::min(s.Light, 3);
    const int top = kBottom - width - 4;
    Fill(cell, {kLeft, kBottom - width, kRight, kBottom});
    Fill(cell, {kLeft, top, kLeft + width, kBottom});
    Fill(cell, {kRight - width, top, kRight, kBottom});
}

struct ShapeRow {
    int Code;
    void (*Draw)(Cell& cell, const Strokes& strokes);
};

// clang-format off
constexpr ShapeRow kShapes[] = {
    {15, Blank},  // no quarter at all
    {16, Shade<64>},
    {17, Shade<128>},
    {18, Shade<192>},
    {19, LowerEighths<1>},
    {20, LowerEighths<2>},
    {21, LowerEighths<3>},
    {22, LowerEighths<5>},  // four are the quarter blocks of code 12
    {23, LowerEighths<6>},
    {24, LowerEighths<7>},
    {25, RisingDiagonal},
    {26, FallingDiagonal},
    {27, LowerLeftTriangle},
    {28, LowerRightTriangle},
    {29, UpArrow},
    {30, DownArrow},
    {31, Heart},
    {127, Checkers},
    {128, Star},
    {129, Lattice},
    {130, LeftArrow},
    {132, RightArrow},
    {133, Disc},
    {134, RoundUpperLeft},
    {135, RoundUpperRight},
    {136, RoundLowerLeft},
    {137, RoundLowerRight},
    {154, Dash},  // the en dash key gives this code
    {155, Dots},
    {159, Stripes},
    {160, OpenBox},
};
// clang-format on

// What draws a code: a row of one of the tables, or neither for quarter blocks and text.
struct Plan {
    const LineRow* Line = nullptr;
    const ShapeRow* Shape = nullptr;
};

consteval std::array<Plan, kCellCodes> ByCode() {
    std::array<Plan, kCellCodes> plans{};
    for (const LineRow& row : kLines) {
        Plan& plan = plans.at(static_cast<std::size_t>(row.Code));
        if (plan.Line != nullptr) throw "this line piece has two rows";
        plan.Line = &row;
    }
    for (const ShapeRow& row : kShapes) {
        Plan& plan = plans.at(static_cast<std::size_t>(row.Code));
        if (plan.Line != nullptr || plan.Shape != nullptr) throw "this shape has two rows";
        plan.Shape = &row;
    }
    for (int code = 0; code < kCellCodes; ++code) {
        const Plan& plan = plans.at(static_cast<std::size_t>(code));
        const bool hasRow = plan.Line != nullptr || plan.Shape != nullptr;
        const bool needsRow = IsGraphic(code) && code > kLastQuarterCode;
        if (hasRow != needsRow) throw "a graphics code has no row, or another code has one";
    }
    return plans;
}

constexpr std::array<Plan, kCellCodes> kPlans = ByCode();

void DrawQuarters(Cell& cell, int code) {
    for (const QuarterRow& quarter : kQuarters) {
        if ((code & quarter.Bit) == 0) Fill(cell, quarter.Place);
    }
}

}  // namespace

Cell GraphicGlyph(int code, const Strokes& strokes) {
    Cell cell{};
    if (!IsGraphic(code)) return cell;
    const Plan& plan = kPlans[static_cast<std::size_t>(code)];
    if (code <= kLastQuarterCode) DrawQuarters(cell, code);
    if (plan.Line != nullptr) DrawLinePiece(cell, *plan.Line, strokes);
    if (plan.Shape != nullptr) plan.Shape->Draw(cell, strokes);
    return cell;
}

}  // namespace tools
