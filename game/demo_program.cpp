#include "game/demo_program.h"

#include <algorithm>
#include <cstdlib>

#include "toolkit/toolkit.h"

std::int64_t BallX = 19;
std::int64_t BallY = 0;
std::int64_t BallNewX = 0;
std::int64_t BallNewY = 0;
std::int64_t BallRow = 0;
std::int64_t BallDX = 0;
std::int64_t BallDY = 0;
std::int64_t PaddleY = 0;
std::int64_t PaddleOldY = 0;
std::int64_t FromPaddle = 0;
std::int64_t Score = 0;
std::int64_t Delay = 0;
bool DemoEnd = false;

namespace {

// Colour numbers.
constexpr std::int64_t kEmpty = 2;
constexpr std::int64_t kOrange = 9;  // also the bricks that stand first in columns 20, 24, 28, 32
constexpr std::int64_t kGreen = 12;
constexpr std::int64_t kPaddle = 13;
constexpr std::int64_t kWhite = 15;

constexpr std::int64_t kColumns = 40;
constexpr std::int64_t kRows = 40;
constexpr std::int64_t kThirds = 3;  // of a row
constexpr std::int64_t kHeights = kRows * kThirds;
constexpr std::int64_t kStartColumn = 19;
constexpr std::int64_t kFirstBrickColumn = 20;
constexpr std::int64_t kLastBrickColumn = 34;
constexpr std::int64_t kBrickSpacing = 2;  // columns
constexpr std::int64_t kColorSpacing = 4;  // rows between bricks of one colour
constexpr std::int64_t kPaddleRows = 6;
constexpr std::int64_t kWholeWall = 720;  // points

constexpr std::int64_t kMessageLine = 3;
constexpr std::int64_t kFirstFieldLine = 5;
constexpr std::int64_t kScoreLine = 25;
constexpr std::int64_t kScoreColumn = 9;
constexpr std::int64_t kPointsColumn = 21;

constexpr std::int64_t kEscape = 27;
constexpr std::int64_t kWholeNumber = 2;  // input mode

std::int64_t Points(std::int64_t column) {
    return column / 2 - 9;
}

void GoTo(std::int64_t line, std::int64_t column) {
    t_Vtab(t_FirstWindow, line);
    t_Htab(t_FirstWindow, column);
}

void PlotColumn(std::int64_t x, std::int64_t firstRow, std::int64_t endRow) {
    for (std::int64_t y = firstRow; y < endRow; ++y) t_Plot(t_FirstWindow, x, y);
}

void PlotBrick(std::int64_t x, std::int64_t row) {
    PlotColumn(x, row, row + 2);
}

void DrawBrickColumn(std::int64_t x) {
    t_Color(t_FirstWindow, kWhite);
    t_Htab(t_FirstWindow, 2 * x + 1);
    t_Print(t_FirstWindow, t_IntToText(Points(x)));
    t_Color(t_FirstWindow, kGreen);
    PlotColumn(x, 0, kRows);
    t_Color(t_FirstWindow, kOrange);
    for (std::int64_t y = x % kColorSpacing; y < kRows; y += kColorSpacing) PlotBrick(x, y);
}

void Pause() {
    if (Delay >= 1) korvandi::Pause(Delay);
}

void CheckEscape() {
    if (t_EventPending && t_NextEvent() == kEscape) DemoEnd = true;
}

void StepVertically() {
    BallNewY = BallY + BallDY;
    if (BallNewY >= 0 && BallNewY < kHeights) return;
    BallDY = -BallDY;
    BallNewY = BallY;
    t_Click();
}

void HitRightWall() {
    t_Click();
    BallNewX = BallX;
    FromPaddle = 0;
    BallDX = -BallDX;
}

// The part of the paddle that is hit decides how steeply the ball leaves.
void HitPaddle() {
    BallDX = 2;
    BallDY = (BallRow - PaddleOldY) * 2 - 5;
    FromPaddle = 1;
    t_Click();
}

void HitBrick() {
    if (FromPaddle == 1) BallDX = std::abs(BallDX);
    t_Color(t_FirstWindow, kEmpty);
    PlotBrick(BallNewX, BallRow - BallRow % 2);
    Score += Points(BallNewX);
    t_Color(t_FirstWindow, kWhite);
    t_Htab(t_FirstWindow, kScoreColumn);
    t_Print(t_FirstWindow, t_IntToText(Score));
    t_Click();
    t_Click();
    if (Score >= kWholeWall) DemoEnd = true;
    BallDX = -BallDX;
}

void MeetWhatIsThere() {
    if (BallNewX >= kColumns) {
        HitRightWall();
    } else if (t_Scrn(t_FirstWindow, BallNewX, BallRow) == kEmpty) {
        return;
    } else if (BallNewX < kStartColumn) {
        HitPaddle();
    } else {
        HitBrick();
    }
}

void MissedPaddle() {
    for (int i = 0; i < 12; ++i) t_Click();
}

void RunFrame() {
    CheckEscape();
    StepVertically();
    BallNewX = BallX + BallDX;
    if (BallNewX < 0) return MissedPaddle();
    MovePaddle();
    BallRow = BallNewY / kThirds;
    MeetWhatIsThere();
    t_Color(t_FirstWindow, kEmpty);
    t_Plot(t_FirstWindow, BallX, BallY / kThirds);
    if (DemoEnd) return;
    t_Color(t_FirstWindow, kWhite);
    t_Plot(t_FirstWindow, BallNewX, BallRow);
    BallX = BallNewX;
    BallY = BallNewY;
}

void AskForDelay() {
    GoTo(kMessageLine, 1);
    t_ClearEndOfLine(t_FirstWindow);
    const std::string typed =
        t_InputForm(t_FirstWindow, "Verzögerung in ms: ", "50", false, kWholeNumber, 5);
    Delay = t_TextToInt(t_StringToText(typed));
}

void ServeBall() {
    BallX = kStartColumn;
    BallY = t_Random(kHeights - 1);
    BallDX = -1;
    BallDY = t_Random(4) - 2;
    BallRow = 20;
    FromPaddle = 1;
}

void RunDemonstration() {
    AskForDelay();
    GoTo(kMessageLine, 1);
    t_Print(t_FirstWindow, "Drücken Sie [Esc] um die Vorführung zu beenden.");
    t_ClearEndOfLine(t_FirstWindow);
    t_Htab(t_FirstWindow, 1);
    Score = 0;
    DrawPlayfield();
    t_Click();
    ServeBall();
    while (!DemoEnd) RunFrame();
}

bool WantsAnother() {
    GoTo(kMessageLine, 1);
    t_Color(t_FirstWindow, kGreen);
    t_Print(t_FirstWindow, "Wollen Sie noch einmal zuschauen (J/N) ? ");
    t_ClearEndOfLine(t_FirstWindow);
    DemoEnd = false;
    return t_InputYesNo(t_FirstWindow, 1, true) == 1;
}

std::int64_t Sign(std::int64_t value) {
    return (value > 0) - (value < 0);
}

}  // namespace

void DrawPlayfield() {
    t_LoResOffset(t_FirstWindow, 0, 2 * (kFirstFieldLine - 1));
    t_LoResMode(t_FirstWindow, 1);
    t_Color(t_FirstWindow, kEmpty);
    for (std::int64_t x = 0; x < kColumns; ++x) PlotColumn(x, 0, kRows);
    t_Color(t_FirstWindow, kWhite);
    t_Vtab(t_FirstWindow, kScoreLine);
    t_Print(t_FirstWindow, "Punkte= 0");
    t_Htab(t_FirstWindow, kPointsColumn);
    t_Print(t_FirstWindow, "Punkte pro Brick ->");
    for (std::int64_t x = kFirstBrickColumn; x <= kLastBrickColumn; x += kBrickSpacing) {
        DrawBrickColumn(x);
    }
}

void MovePaddle() {
    const std::int64_t jitter = Sign(BallDY) * t_Random(2);
    PaddleY = std::clamp<std::int64_t>(jitter + (BallY - 5) / kThirds - 1, 0, kRows - kPaddleRows);
    t_Color(t_FirstWindow, kPaddle);
    PlotColumn(0, PaddleY, PaddleY + kPaddleRows);
    t_Color(t_FirstWindow, kEmpty);
    if (PaddleY >= PaddleOldY) {
        PlotColumn(0, 0, PaddleY);
    } else {
        PlotColumn(0, PaddleY + kPaddleRows, kRows);
    }
    PaddleOldY = PaddleY;
    Pause();
}

void DemoProgram() {
    t_InitWindow(0, 24, 80, 25, 16, "MenloBold 16x32.font");
    t_WindowCenter(0);
    t_WindowFront(0);
    t_Header(t_FirstWindow, "Korvandi", "Ein Spiel, das sich selbst spielt");
    t_WindowFont(t_FirstWindow, t_LoadFontResource("MenloRegular 16x32.font"));
    t_TextLine(t_FirstWindow);
    do {
        RunDemonstration();
    } while (WantsAnother());
    t_QuitProgram(0);
}
