// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "surfaces/guides/OnboardingCards.h"

#include <QObject>
#include <qqmlregistration.h>

namespace zumeta {

/// One card of the guide, as QML shows it. OnboardingModel has two. Main thread.
class OnboardingCardModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("OnboardingModel has both")
    Q_PROPERTY(bool isShown READ isShown NOTIFY changed FINAL)
    Q_PROPERTY(QString titleKey READ titleKey NOTIFY changed FINAL)
    Q_PROPERTY(QString messageKey READ messageKey NOTIFY changed FINAL)
    Q_PROPERTY(QString progress READ progress NOTIFY changed FINAL) ///< "2 / 5"
    /// Of all that is on it, as it is laid out.
    Q_PROPERTY(double contentHeight READ contentHeight WRITE setContentHeight NOTIFY contentHeightChanged FINAL)
    Q_PROPERTY(QRectF frame READ frame NOTIFY frameChanged FINAL) ///< in the window, in whole pixels
public:
    using QObject::QObject;

    bool isShown() const { return m_isShown; }
    QString titleKey() const { return m_text.titleKey; }
    QString messageKey() const { return m_text.messageKey; }
    QString progress() const { return m_text.progress; }
    double contentHeight() const { return m_contentHeight; }
    void setContentHeight(double height);
    QRectF frame() const { return m_frame; }

    void show(const OnboardingCardText& text);
    void hide();
    void setFrame(const QRectF& frame);

Q_SIGNALS:
    void changed();
    void contentHeightChanged();
    void frameChanged();

private:
    bool m_isShown = false;
    OnboardingCardText m_text;
    double m_contentHeight = kOnboardingCardHeight;
    QRectF m_frame;
};

}
