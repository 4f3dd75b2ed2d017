#ifndef TINDRA_TESTS_KIT_RUNEXPECTATIONS_H
#define TINDRA_TESTS_KIT_RUNEXPECTATIONS_H

#include <gtest/gtest.h>

#include <string>

#include "support/ChildProcess.h"

namespace KitTest {

// The three things a run is judged by, compared at once so a failure shows all of them.
inline void ExpectRun(TestSupport::ChildResult const& run, int status, std::string const& out,
                      std::string const& err) {
    EXPECT_EQ(out, run.out);
    EXPECT_EQ(err, run.err);
    EXPECT_EQ(status, run.status);
}

}  // namespace KitTest

#endif
