#include "platform/steady_clock.h"

#include <gtest/gtest.h>

using namespace tambrix;
using namespace std::chrono_literals;

// A wait for input that ends early looks like a board that does not answer.
TEST(SteadyClock, PausesNoShorterThanItShould)
{
    SteadyClock clock;
    for (Duration span = 100us; span < 3ms; span += 300us) {
        const Duration end = clock.now() + span;
        clock.pause(span);
        EXPECT_GE(clock.now(), end) << span.count() << " ns";
    }
}
