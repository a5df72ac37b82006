// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/SleepInhibitor.h"

#include <vector>

namespace zumeta::test {

/// Grants every right and counts those that are held.
class FakeSleepInhibitor final : public SleepInhibitor {
public:
    [[nodiscard]] std::unique_ptr<Inhibition> inhibit(const QString& reason) override
    {
        reasons.push_back(reason);
        return std::make_unique<Counted>(live);
    }

    int live = 0;
    std::vector<QString> reasons;

private:
    class Counted final : public Inhibition {
    public:
        explicit Counted(int& live)
            : m_live(live)
        {
            ++m_live;
        }
        ~Counted() override { --m_live; }

    private:
        int& m_live;
    };
};

}
