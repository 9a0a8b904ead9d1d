#ifndef REQUIRE_H
#define REQUIRE_H

#include <cstdlib>

/* Ends the program when a property does not hold, so that the fuzzer keeps the input. */
#define REQUIRE(condition)                                                                         \
    do {                                                                                           \
        if (!(condition))                                                                          \
            std::abort();                                                                          \
    } while (false)

#endif
