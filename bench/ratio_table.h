#pragma once

#include <functional>
#include <string>

// Benchmarks in pairs: a piece of work and the least that any program would have to do for it, both
// measured in one run. What is compared are the fastest repetitions.

/// Adds a pair. `goal` is the ratio that the work is to keep.
void AddPair(const std::string& name, const std::string& limitName, std::function<void()> work,
             std::function<void()> limit, double goal);

/// Runs all pairs and prints a table of figure, limit, ratio and goal; returns the exit status.
int RunPairs(int argc, char** argv);
