#pragma once

#include <cstdint>

// The game: a ball between a wall of bricks and a paddle that steers itself. Every brick that the
// ball hits is erased and adds to the score; a demonstration ends with the Escape key or with the
// last brick. Runs on the program thread alone.
//
// The field is the lo-res grid of the first window, 40 columns by 40 rows, in text lines 5 to 24; a
// point's colour tells what it is.
//
//   column 0   19          20 22 24 26 28 30 32 34    39
//   | paddle   first ball   bricks, 1 to 8 points each  | right wall

extern std::int64_t BallX;     // column of the ball before the step
extern std::int64_t BallY;     // height before the step, in thirds of a row from the top, 0 to 119
extern std::int64_t BallNewX;  // column after the step
extern std::int64_t BallNewY;  // height after the step
extern std::int64_t BallRow;   // row after the step
extern std::int64_t BallDX;    // columns per frame
extern std::int64_t BallDY;    // thirds of a row per frame
extern std::int64_t PaddleY;   // top row of the paddle, 0 to 34
extern std::int64_t PaddleOldY;  // the same in the frame before
extern std::int64_t FromPaddle;  // 1: the ball last came off the paddle, 0: off the right wall
extern std::int64_t Score;
extern std::int64_t Delay;  // pause per frame, milliseconds; 0 or less: none
extern bool DemoEnd;        // the frames are to end

/// The program's entry. Never returns: ends with t_QuitProgram.
[[noreturn]] void DemoProgram();

/// Draws the empty field, the score line and the wall.
void DrawPlayfield();

/// Steers and draws the paddle and makes the frame's pause.
void MovePaddle();
