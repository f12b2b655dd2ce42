#pragma once

#include <cstdio>
#include <cstdlib>

// A property the fuzzed code must keep: on failure the target aborts and libFuzzer keeps the input.
#define FUZZ_CHECK(condition)                                                                      \
    ((condition)                                                                                   \
            ? void()                                                                               \
            : (std::fprintf(stderr, "%s:%d: check failed: %s\n", __FILE__, __LINE__, #condition),  \
                std::abort()))
