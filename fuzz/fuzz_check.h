// A failed property ends the fuzzer with a message, so that libFuzzer records the input as a finding.
#pragma once
#include <cstdio>
#include <cstdlib>

#define FUZZ_CHECK(condition)                                                          \
    do {                                                                               \
        if (!(condition)) {                                                            \
            std::fprintf(stderr, "%s:%d: check failed: %s\n", __FILE__, __LINE__, #condition); \
            std::abort();                                                              \
        }                                                                              \
    } while (0)
