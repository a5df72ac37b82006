// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <string>
#include <sys/types.h>
#include <vector>

namespace zumeta::test {

/// System calls that fail when a test wants it. For programs that zumeta_inject_faults was called for; only calls of
/// the project's own libraries and of this thread are counted, and only while an instance lives.
class FaultyCalls {
public:
    struct Plan {
        int failingCall = 0;            ///< counted from 1 over all kinds; 0 for none
        int error = 0;                  ///< what it fails with
        bool staysBroken = false;       ///< calls of that kind fail from then on
        size_t largestWrite = SIZE_MAX; ///< bytes that one write takes at most
    };

    explicit FaultyCalls(const Plan& plan);
    ~FaultyCalls();
    FaultyCalls(const FaultyCalls&) = delete; // it stands for what this thread's calls do
    FaultyCalls& operator=(const FaultyCalls&) = delete;

    /// The kinds of the calls made so far.
    const std::vector<std::string>& calls() const { return m_calls; }
    bool hasFailed() const { return m_plan.failingCall > 0 && calls().size() >= size_t(m_plan.failingCall); }

    /// Counts a call. True: it fails, and errno says with what. Always false where no instance lives.
    static bool fails(const char* kind);
    static size_t writable(size_t count);

private:
    Plan m_plan;
    std::vector<std::string> m_calls;
};

}
