// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/SleepInhibitor.h"

#include <vector>

namespace zumeta::test {

/// Counts who keeps the machine awake and remembers why.
class FakeSleepInhibitor final : public SleepInhibitor {
public:
    std::unique_ptr<Inhibition> inhibit(const QString& reason) override
    {
        reasons.push_back(reason);
        return std::make_unique<Counted>(m_live);
    }
    int live() const { return *m_live; }

    std::vector<QString> reasons; ///< of all that were ever asked for, in order

private:
    class Counted final : public Inhibition {
    public:
        explicit Counted(std::shared_ptr<int> live)
            : m_live(std::move(live))
        {
            ++*m_live;
        }
        ~Counted() override { --*m_live; }

    private:
        std::shared_ptr<int> m_live;
    };

    std::shared_ptr<int> m_live = std::make_shared<int>(0); ///< shared, since an inhibition may outlive this
};

}
