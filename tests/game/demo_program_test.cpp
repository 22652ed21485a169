#include "game/demo_program.h"

#include <algorithm>
#include <cstdlib>
#include <random>
#include <set>

#include "platform/thread.h"
#include "tests/support/fixture.h"

// The game through the toolkit: its routines on the test's thread, whole runs on a program thread
// with a person that answers whenever the program waits.

namespace {

using Strings = std::vector<std::string>;

const std::string kClear = "\x18";  // Control-X

class Game : public ToolkitTest {
  protected:
    Game() {
        for (const char* const name : {"MenloBold 16x32.font", "MenloRegular 16x32.font"}) {
            desktop.Files[name] = FontFile(TestFont());
        }
        desktop.StartTime = 800'000'000.123'456;
        desktop.SoundFiles["click.aif"] = true;
        BallX = 19;
        PaddleOldY = Score = Delay = 0;
        DemoEnd = false;
    }

    // Runs the whole program. At each prompt for the delay the next of `prompts` is typed, at each
    // question the next of `answers`; `inFrame` is called in the pause of each frame.
    void Play(Strings prompts, Strings answers, std::function<void()> inFrame) {
        std::reverse(prompts.begin(), prompts.end());
        std::reverse(answers.begin(), answers.end());
        bool playing = false;
        desktop.OnSleep = [&] {
            if (platform::OnMain()) return;
            if (t_Windows[0].TextCursorLevel == 0) return playing ? inFrame() : void();
            playing = Line(3).starts_with("Verz.gerung in ms: 50 ");
            EXPECT_NE(playing, Line(3).starts_with("Wollen Sie noch einmal zuschauen (J/N) ?  "));
            Strings& typed = playing ? prompts : answers;
            EXPECT_FALSE(typed.empty());
            if (typed.empty()) typed = {"\x1B"};
            Type(typed.back());
            typed.pop_back();
        };
        startprocess(DemoProgram, 0x10'0000);
        const auto ended = [] { return platform::RunningThreads() == 0; };
        ASSERT_TRUE(desktop.ServeUntil(ended, std::chrono::seconds(280)));
        EXPECT_TRUE(prompts.empty() && answers.empty());
        EXPECT_TRUE(desktop.Printed().ends_with(
            "t_QuitProgram: Quitting current thread with message in window #0.\n"));
        EXPECT_TRUE(Line(25).starts_with("(Programm Ende)"));
    }

    static std::string Line(std::size_t line) { return ScreenText(0).substr(81 * (line - 1), 80); }
};

// What a point of the untouched field holds.
std::int64_t FreshPoint(std::int64_t x, std::int64_t y) {
    if (x < 20 || x > 34 || x % 2 != 0) return 2;
    return (y % 4 < 2) == (x % 4 == 0) ? 9 : 12;
}

// The points that the standing bricks are worth; a brick stands whole or not at all.
std::int64_t Standing() {
    std::int64_t points = 0;
    for (std::int64_t x = 20; x <= 34; x += 2) {
        for (std::int64_t y = 0; y < 40; y += 2) {
            const bool stands = t_Scrn(0, x, y) == FreshPoint(x, y);
            EXPECT_EQ(t_Scrn(0, x, y + 1) == FreshPoint(x, y), stands);
            if (stands) points += x / 2 - 9;
        }
    }
    return points;
}

std::int64_t PointsOfColor(std::int64_t color) {
    std::int64_t points = 0;
    for (std::int64_t i = 0; i < 1600; ++i) points += t_Scrn(0, i % 40, i / 40) == color ? 1 : 0;
    return points;
}

// In the pause of a frame the ball is put at (X, Y), on its way to (NewX, NewY); in the pause
// of the next frame it has arrived and aims at NextY.
struct MeetingRow {
    std::int64_t X, Y, NewX, NewY, DX, DY, From;
    std::int64_t EndX, NextY, EndDX, EndDY, EndFrom, Points;
};
constexpr MeetingRow kMeetings[] = {
    {10, 60, 9, 61, -1, 1, 1, /**/ 9, 62, -1, 1, 1, 0},        // free
    {38, 30, 40, 33, 2, 3, 1, /**/ 38, 36, -2, 3, 0, 0},       // right wall
    {25, 90, 27, 90, 1, 0, 0, /**/ 27, 90, 1, 0, 0, 0},        // between bricks
    {25, 21, 26, 22, 2, 1, 1, /**/ 26, 23, -2, 1, 1, 4},       // brick from the front
    {29, 90, 28, 93, -2, 3, 1, /**/ 28, 96, -2, 3, 1, 5},      // sent to the paddle all the same
    {36, 60, 34, 63, -2, 3, 0, /**/ 34, 66, 2, 3, 0, 8},       // brick from behind
    {18, 0, 20, 5, 2, 5, 0, /**/ 20, 10, -2, 5, 0, 1},         // behind the wall both ways
    {18, 2, 17, 0, -1, -2, 1, /**/ 17, 0, -1, 2, 1, 0},        // upper edge
    {16, 1, 15, 1, -1, -1, 1, /**/ 15, 0, -1, -1, 1, 0},       // not yet
    {16, 115, 15, 118, -1, 3, 1, /**/ 15, 118, -1, -3, 1, 0},  // lower edge
    {16, 115, 15, 119, -1, 1, 1, /**/ 15, 119, -1, -1, 1, 0},
    {16, 115, 15, 118, -1, 1, 1, /**/ 15, 119, -1, 1, 1, 0},
    {12, 60, 10, 60, -2, 0, 0, /**/ 10, 60, -2, 0, 0, 0},  // the paddle comes to the middle
};

}  // namespace

TEST_F(Game, DrawsFieldWallAndScoreLine) {
    t_InitWindow(0, 24, 80, 25, 16, "MenloBold 16x32.font");
    DrawPlayfield();
    for (std::int64_t x = 0; x < 40; ++x) {
        for (std::int64_t y = 0; y < 40; ++y) ASSERT_EQ(t_Scrn(0, x, y), FreshPoint(x, y));
    }
    EXPECT_EQ(Standing(), 720);
    // The field lies in lines 5 to 24, two columns of text to a point.
    EXPECT_EQ(ColorsOfLine(0, 5).substr(117, 18), "22 99 99 22 22 CC ");
    EXPECT_EQ(Line(4), std::string(80, ' '));
    EXPECT_EQ(Line(25),
              "Punkte= 0           Punkte pro Brick -> 1   2   3   4   5   6   7   8           ");
    EXPECT_EQ(ColorsOfLine(0, 25).front(), 'F');
    EXPECT_EQ(ColorsOfLine(0, 25)[204], 'F');
}

TEST_F(Game, ThePaddleAlwaysCoversTheBall) {
    t_InitWindow(0, 24, 80, 25, 16, "MenloBold 16x32.font");
    DrawPlayfield();
    // The clock stands at 2 to the power of 15 nanoseconds: the random number is then bits 1 to 7
    // of the last of eight draws.
    desktop.StartTime = 32'768 / 1e9;
    std::uint32_t jitter = 0;
    std::uint32_t draws = 0;
    desktop.NextRandom = [&] { return ++draws % 8 == 0 ? 2 * jitter + 1 : 1; };
    for (jitter = 0; jitter <= 2; ++jitter) {
        for (BallY = 0; BallY < 120; ++BallY) {
            for (std::int64_t step = -5; step <= 5; ++step) {
                const bool bounces = BallY + step < 0 || BallY + step > 119;
                BallDY = bounces ? -step : step;
                BallNewY = bounces ? BallY : BallY + step;
                MovePaddle();
                const std::int64_t sign = BallDY > 0 ? 1 : BallDY < 0 ? -1 : 0;
                ASSERT_EQ(t_Random(0), jitter);
                ASSERT_EQ(PaddleY,
                          std::clamp<std::int64_t>(sign * jitter + (BallY - 5) / 3 - 1, 0, 34));
                ASSERT_EQ(PaddleOldY, PaddleY);
                ASSERT_LE(PaddleY, BallNewY / 3);
                ASSERT_LE(BallNewY / 3, PaddleY + 5);
                for (std::int64_t y = 0; y < 40; ++y) {
                    ASSERT_EQ(t_Scrn(0, 0, y), y >= PaddleY && y < PaddleY + 6 ? 13 : 2);
                }
            }
        }
    }
    EXPECT_EQ(Standing(), 720);
}

TEST_F(Game, TheBallObeysWhatItMeets) {
    std::int64_t frame = 0;
    std::int64_t score = 0;
    MeetingRow row{};
    const auto put = [&](const MeetingRow& next) {
        t_Color(0, 2);
        if (BallX != 0) t_Plot(0, BallX, BallY / 3);  // the ball leaves its place without a step
        row = next;
        BallX = row.X, BallY = row.Y, BallNewX = row.NewX, BallNewY = row.NewY;
        BallDX = row.DX, BallDY = row.DY, FromPaddle = row.From;
    };
    const auto play = [&] {
        if (DemoEnd) return;
        if (frame > 0) {
            SCOPED_TRACE(frame);
            score += row.Points;
            EXPECT_EQ((std::vector{BallX, BallNewY, BallDX, BallDY, FromPaddle, Score}),
                      (std::vector{row.EndX, row.NextY, row.EndDX, row.EndDY, row.EndFrom, score}));
            const bool onPaddle = BallX == 0;  // which was drawn again meanwhile
            EXPECT_EQ(t_Scrn(0, BallX, BallY / 3), onPaddle ? 13 : 15);
            EXPECT_EQ(PointsOfColor(15), onPaddle ? 0 : 1);
            EXPECT_EQ(Standing(), 720 - score);
            EXPECT_TRUE(Line(25).starts_with("Punkte= " + std::to_string(score) + " "));
        }
        const std::int64_t part = frame++ - std::ssize(kMeetings);
        if (part < 0) {
            put(kMeetings[frame - 1]);
        } else if (part < 6) {  // the six rows of the paddle
            const std::int64_t y = 3 * (PaddleOldY + part);
            const std::int64_t dy = 2 * part - 5;
            put({2, y, 0, y, -2, 1, 0, 0, y + dy, 2, dy, 1, 0});
        } else {
            EXPECT_TRUE(Line(3).starts_with("Dr.cken Sie [Esc] um die Vorf.hrung zu beenden.   "));
            Type("\x1B");
        }
    };
    Play({kClear + "1\r"}, {"n"}, play);
    EXPECT_EQ(score, 18);
    EXPECT_EQ(PointsOfColor(15), 0);  // the ball is not drawn again
}

TEST_F(Game, AMissedBallClicksUntilEscape) {
    std::size_t before = 0;
    Play({"\r"}, {"x"}, [&] {
        ASSERT_EQ(before, 0U);
        BallX = BallNewX = 5;
        BallDX = -9;
        before = desktop.Played().size();
        Type("x\x1B");
    });
    EXPECT_EQ(desktop.Played().size(), before + 24);
    EXPECT_EQ(PointsOfColor(15), 1);
}

TEST_F(Game, PausesAsTypedAndPlaysAgainWhenAsked) {
    std::vector<double> pauses;
    double last = 0;
    std::int64_t frames = 0;
    const auto keys = [&] {
        if (DemoEnd) return;
        EXPECT_EQ(Standing(), 720 - Score);
        if (frames % 3 != 0) pauses.push_back(desktop.Now() - last);
        last = desktop.Now();
        const char* const typed[] = {"J", " ", "\x1B"};  // other keys do nothing
        Type(typed[frames++ % 3]);
        if (frames % 3 == 0) Score = 99;  // of which the next demonstration knows nothing
    };
    Play({"\r", kClear + "1234\r", kClear + "-5\r\x1B", kClear + "\r\x1B", "9\r"},
         {"\r", " ", "j", "Y", "\x1B"}, keys);
    EXPECT_EQ(frames, 9);
    const double expected[] = {0.05, 0.05, 1.234, 1.234, 0.509, 0.509};
    ASSERT_EQ(pauses.size(), std::size(expected));
    for (std::size_t i = 0; i < pauses.size(); ++i) EXPECT_NEAR(pauses[i], expected[i], 1e-5);
    EXPECT_TRUE(Line(3).starts_with("Wollen Sie noch einmal zuschauen (J/N) ? N "));
    EXPECT_TRUE(Line(1).starts_with("Korvandi "));
    EXPECT_TRUE(Host(0).IsVisible());
}

namespace {

struct Ending {
    std::string Printed;
    std::vector<std::uint8_t> Picture;
    std::size_t Sounds = 0;

    bool operator==(const Ending&) const = default;
};

// A whole game without pauses, on a toolkit of its own.
class WholeGame : public Game {
  public:
    Ending Run(std::uint32_t seed) {
        std::int64_t draws = 0;
        desktop.NextRandom = [&draws, random = std::mt19937(seed)]() mutable {
            EXPECT_TRUE(draws++ % 8 != 0 || Standing() == 720 - Score);
            return static_cast<std::uint32_t>(random());
        };
        Play({"\x1B"}, {"n"}, [] { ADD_FAILURE() << "pauses"; });
        EXPECT_EQ(Delay, 0);
        EXPECT_EQ(Score, 720);
        EXPECT_EQ(Standing(), 0);
        EXPECT_EQ(PointsOfColor(15), 0);
        EXPECT_TRUE(Line(25).substr(15).starts_with("     Punkte pro Brick ->"));
        return {desktop.Printed(), PictureBytes(0), desktop.Played().size()};
    }

  private:
    void TestBody() override {}
};

}  // namespace

// As many games as the variable KORVANDI_GAMES of the environment says. A game that the paddle
// loses never ends.
TEST(WholeGames, EndWithTheWallAndRepeatToTheByte) {
    const char* const number = std::getenv("KORVANDI_GAMES");
    const std::uint32_t games =
        number == nullptr ? 200 : static_cast<std::uint32_t>(std::stoul(number));
    std::set<std::size_t> lengths;
    for (std::uint32_t seed = 1; seed <= games && !testing::Test::HasFailure(); ++seed) {
        SCOPED_TRACE(seed);
        const Ending game = WholeGame().Run(seed);
        EXPECT_GT(game.Sounds, 320U);
        lengths.insert(game.Sounds);
        EXPECT_TRUE(seed % 10 != 0 || WholeGame().Run(seed) == game);
    }
    EXPECT_GT(lengths.size(), std::min(games / 20, 10U));
}
