// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "surfaces/controls/PressRepeat.h"
#include "surfaces/controls/ValueRowInteraction.h"

#include <QObject>
#include <functional>
#include <qqmlregistration.h>

namespace zumeta {
class NotificationCenter;
class TextFieldFocusTracker;

/// What one row is of: its words, its rules, and where its value is kept.
struct ValueRowSource {
    QString label;                       ///< key of a text
    int labelFontSize = 15;              ///< logical pixels
    QString unit{};                      ///< key of a text; never drawn
    QString labelAccessorySystemImage{}; ///< icon after the label, if any
    std::function<ValueRowRules()> rules;
    std::function<double()> value;         ///< in stored units
    std::function<void(double)> setValue;  ///< may make another value of it
    std::function<void()> onInteraction{}; ///< before the user changes the value
    std::function<void()> onEditingEnded{};
};

/// What every row of the window shares.
struct ValueRowSurroundings {
    NotificationCenter& notifications;
    TextFieldFocusTracker& fieldFocus;
    const Clock& clock;
};

/// One adjustable number with its label, field, two buttons and track, for the QML that draws it. It outlives what is
/// drawn. Whoever owns it says when the value may have changed. Main thread.
class ValueRowModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("the rows are made where their values are")
    Q_PROPERTY(QString label READ label CONSTANT FINAL)
    Q_PROPERTY(QString unit READ unit CONSTANT FINAL)
    Q_PROPERTY(int labelFontSize READ labelFontSize CONSTANT FINAL)
    Q_PROPERTY(QString labelAccessorySystemImage READ labelAccessorySystemImage CONSTANT FINAL)
    Q_PROPERTY(double fieldWidth READ fieldWidth CONSTANT FINAL)
    Q_PROPERTY(double value READ value NOTIFY valueChanged FINAL) ///< stored units
    Q_PROPERTY(double lower READ lower NOTIFY valueChanged FINAL)
    Q_PROPERTY(double upper READ upper NOTIFY valueChanged FINAL)
    Q_PROPERTY(double step READ step CONSTANT FINAL)
    /// Places on the track, 0 at its left to 1.
    Q_PROPERTY(double knobFraction READ knobFraction NOTIFY valueChanged FINAL)
    Q_PROPERTY(bool hasZeroTick READ hasZeroTick NOTIFY valueChanged FINAL)
    Q_PROPERTY(double zeroTickFraction READ zeroTickFraction NOTIFY valueChanged FINAL)
    Q_PROPERTY(bool canStepDown READ canStepDown NOTIFY valueChanged FINAL)
    Q_PROPERTY(bool canStepUp READ canStepUp NOTIFY valueChanged FINAL)
    Q_PROPERTY(QString textInput READ textInput NOTIFY textInputChanged FINAL)
    Q_PROPERTY(bool isDraggingSlider READ isDraggingSlider NOTIFY isDraggingSliderChanged FINAL)
    Q_PROPERTY(bool isFocused READ isFocused NOTIFY isFocusedChanged FINAL)
public:
    ValueRowModel(ValueRowSource source, const ValueRowSurroundings& surroundings, QObject* parent = nullptr);

    QString label() const { return m_source.label; }
    QString unit() const { return m_source.unit; }
    int labelFontSize() const { return m_source.labelFontSize; }
    QString labelAccessorySystemImage() const { return m_source.labelAccessorySystemImage; }
    double fieldWidth() const { return m_rules.fieldWidth(); }
    double value() const { return m_value; }
    double lower() const { return m_rules.lower; }
    double upper() const { return m_rules.upper; }
    double step() const { return m_rules.step; }
    double knobFraction() const;
    bool hasZeroTick() const;
    double zeroTickFraction() const;
    bool canStepDown() const { return m_rules.canStepDown(m_value); }
    bool canStepUp() const { return m_rules.canStepUp(m_value); }
    QString textInput() const { return m_textInput; }
    bool isDraggingSlider() const { return m_isDraggingSlider; }
    bool isFocused() const { return m_isFocused; }

    /// Reads the value and its range anew.
    void refresh();

    // The field. While an input method composes, nothing counts as typed.
    Q_INVOKABLE void typed(const QString& text, int caret, bool isComposing);
    Q_INVOKABLE void focusChanged(bool hasFocus, int reason); ///< a Qt::FocusReason
    Q_INVOKABLE void submit();
    Q_INVOKABLE void escape();
    Q_INVOKABLE void clearFocus();

    // The buttons.
    Q_INVOKABLE void pressMinus();
    Q_INVOKABLE void pressPlus();
    Q_INVOKABLE void releaseStepper();
    Q_INVOKABLE void stepDown();
    Q_INVOKABLE void stepUp();

    // The track.
    Q_INVOKABLE void dragTrack(double x, double width);
    Q_INVOKABLE void endTrackDrag();

    // What draws the row.
    Q_INVOKABLE void endGestures(); ///< it can no longer be used
    Q_INVOKABLE void goAway();      ///< it is no more; a text that was not applied goes with it

Q_SIGNALS:
    void valueChanged();
    void textInputChanged();
    void isDraggingSliderChanged();
    void isFocusedChanged();
    /// The field is to show this, with its caret there.
    void textShown(const QString& text, int caret);
    void allSelected();
    void fieldLeft();

private:
    void carryOut(const ValueRowIntents& intents);
    void carryOut(const ValueRowIntent& intent);
    void show(const QString& text, int caret);
    void showValue();
    void adjust(FieldAdjustment adjustment);

    ValueRowSource m_source;
    ValueRowSurroundings m_surroundings;
    ValueRowRules m_rules; ///< as they stood at the last refresh
    double m_value = 0;    ///< likewise
    ValueRowInteraction m_interaction;
    PressRepeat m_pressRepeat;
    QString m_textInput;
    bool m_isDraggingSlider = false; ///< as it was told of
    bool m_isFocused = false;        ///< likewise
};

}
