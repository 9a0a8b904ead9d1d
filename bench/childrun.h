#ifndef CHILDRUN_H
#define CHILDRUN_H

#include <string>
#include <vector>

/* A program run to its end: what it cost, and what it printed. */
struct ChildRun
{
    bool good = false;          // started, and ended with 0
    double cpuMilliseconds = 0; // of it and its children, user and system
    double elapsedMilliseconds = 0;
    std::string output; // standard output
};

/* Runs it with that file as its input and `folder` as its home. */
ChildRun runChild(const std::vector<std::string>& command, const std::string& input,
                  const std::string& folder);

/* The path of an installed program; empty when there is none. */
std::string programPath(const std::string& name);

#endif
