// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/panels/AdjustmentRows.h"

#include "session/CompositorViewModel.h"
#include "surfaces/theme/SurfaceContext.h"

#include <QQmlEngine>
#include <memory>

namespace zumeta {

struct AdjustmentRows::Entry {
    const char16_t* label;
    const char16_t* unit;
    int labelFontSize;
    ValueRowRules rules;
    Getter value;
    Setter setValue;
    void (CompositorViewModel::*onInteraction)();
    bool reachesTheDuration = false; ///< whatever it is by then
};

namespace {

constexpr int kLabelSize = 15;
constexpr int kTrimLabelSize = 13;
constexpr ValueRowRules kPercent{.lower = -100, .upper = 100, .keyboardAdjustmentEnabled = true};
constexpr ValueRowRules kHundredths{
    .lower = -500, .upper = 500, .displayScale = 0.01, .keyboardAdjustmentEnabled = true};
constexpr ValueRowRules kBlur{.lower = 0, .upper = 50, .keyboardAdjustmentEnabled = true};
constexpr ValueRowRules kTrim{
    .step = 0.01, .decimalPlaces = 2, .displaysAsTimecode = true, .keyboardAdjustmentEnabled = true};

}

AdjustmentRows::AdjustmentRows(CompositorViewModel& session, const ValueRowSurroundings& surroundings, QObject* parent)
    : QObject(parent)
    , m_session(session)
{
    using S = CompositorViewModel;
    const auto begin3 = &S::beginStep3Adjustment;
    const auto begin4 = &S::beginStep4Adjustment;
    m_basic = rowsOf(
        {{u"Waterline Height", u"", kLabelSize, kPercent, &S::relativeWaterlineHeight, &S::setRelativeWaterlineHeight,
          begin3},
         {u"Person Height", u"", kLabelSize, kPercent, &S::relativeAboveOffset, &S::setRelativeAboveOffset, begin3},
         {u"Horizontal Position", u"", kLabelSize, kPercent, &S::relativeAboveHorizontalOffset,
          &S::setRelativeAboveHorizontalOffset, begin3}},
        surroundings);
    m_advanced =
        rowsOf({{u"Zoom", u"", kLabelSize, kPercent, &S::aboveZoom, &S::setAboveZoom, begin3},
                {u"Timing", u"seconds", kLabelSize, kHundredths, &S::timingOffset, &S::setTimingOffset, begin3},
                {u"Boundary Blur", u"", kLabelSize, kBlur, &S::blendAmount, &S::setBlendAmount, begin3}},
               surroundings);
    m_trim =
        rowsOf({{u"Trim Start", u"", kTrimLabelSize, kTrim, &S::trimStart, &S::setTrimStart, begin4, true},
                {u"Trim End", u"", kTrimLabelSize, kTrim, &S::trimEndPosition, &S::setTrimEndPosition, begin4, true}},
               surroundings);
    connect(&session, &CompositorViewModel::changed, this, &AdjustmentRows::refresh);
}

AdjustmentRows* AdjustmentRows::create(QQmlEngine* engine, QJSEngine*)
{
    SurfaceContext& context = SurfaceContext::of(*engine);
    const ValueRowSurroundings surroundings{context.notifications(), context.fieldFocus(), context.clock()};
    return std::make_unique<AdjustmentRows>(context.session(), surroundings).release(); // the engine takes it over
}

QList<ValueRowModel*> AdjustmentRows::rowsOf(const std::vector<Entry>& entries,
                                             const ValueRowSurroundings& surroundings)
{
    QList<ValueRowModel*> rows;
    for (const Entry& entry : entries) {
        auto row = std::make_unique<ValueRowModel>(sourceOf(entry), surroundings, this);
        rows.append(row.release()); // its parent owns it
    }
    return rows;
}

ValueRowSource AdjustmentRows::sourceOf(const Entry& entry)
{
    CompositorViewModel& session = m_session;
    const auto rules = [&session, entry] {
        ValueRowRules now = entry.rules;
        if (entry.reachesTheDuration)
            now.upper = session.duration();
        return now;
    };
    return {.label = QString::fromUtf16(entry.label),
            .labelFontSize = entry.labelFontSize,
            .unit = QString::fromUtf16(entry.unit),
            .rules = rules,
            .value = [&session, entry] { return (session.*entry.value)(); },
            .setValue = [&session, entry](double value) { (session.*entry.setValue)(value); },
            .onInteraction = [&session, entry] { (session.*entry.onInteraction)(); }};
}

void AdjustmentRows::refresh()
{
    for (const QList<ValueRowModel*>* const rows : {&m_basic, &m_advanced, &m_trim}) {
        for (ValueRowModel* const row : *rows)
            row->refresh();
    }
}

}
