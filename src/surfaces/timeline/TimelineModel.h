// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "surfaces/timeline/SimpleSliderModel.h"
#include "surfaces/timeline/TimelineActions.h"
#include "surfaces/timeline/TrimmerModel.h"

class QJSEngine;
class QQmlEngine;

namespace zumeta {

/// The timeline strip: what it shows of the session around its slider, and what its buttons and keys do. It outlives
/// the change from one slider to the other. Main thread.
class TimelineModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(zumeta::SimpleSliderModel* slider READ slider CONSTANT FINAL)
    Q_PROPERTY(zumeta::TrimmerModel* trimmer READ trimmer CONSTANT FINAL)
    Q_PROPERTY(bool hasTrimmer READ hasTrimmer NOTIFY changed FINAL) ///< in place of the plain slider
    Q_PROPERTY(double height READ height NOTIFY changed FINAL)       ///< of the strip
    Q_PROPERTY(double sliderBoxHeight READ sliderBoxHeight NOTIFY changed FINAL)
    Q_PROPERTY(bool hasMedia READ hasMedia NOTIFY changed FINAL)    ///< there is something to play
    Q_PROPERTY(QString playIcon READ playIcon NOTIFY changed FINAL) ///< the name of an Icon
    Q_PROPERTY(QString playTextKey READ playTextKey NOTIFY changed FINAL)
    Q_PROPERTY(double time READ time NOTIFY timeChanged FINAL) ///< of the playhead, seconds
    Q_PROPERTY(double duration READ duration NOTIFY changed FINAL)
    Q_PROPERTY(QString timeText READ timeText NOTIFY timeChanged FINAL)
    Q_PROPERTY(QString lengthText READ lengthText NOTIFY changed FINAL)
    Q_PROPERTY(bool lengthHasIcon READ lengthHasIcon NOTIFY changed FINAL)
    Q_PROPERTY(bool showsFullScreenButton READ showsFullScreenButton NOTIFY changed FINAL)
    Q_PROPERTY(QString fullScreenIcon READ fullScreenIcon NOTIFY changed FINAL)
    Q_PROPERTY(QString fullScreenTextKey READ fullScreenTextKey NOTIFY changed FINAL)
    /// Told by the strip: a window that is left ends every drag in it.
    Q_PROPERTY(bool isWindowActive READ isWindowActive WRITE setWindowActive NOTIFY isWindowActiveChanged FINAL)
public:
    TimelineModel(CompositorViewModel& session, ThumbDragHint hint, QObject* parent = nullptr);
    /// The engine's own; see SurfaceContext.
    static TimelineModel* create(QQmlEngine* engine, QJSEngine*);

    SimpleSliderModel* slider() { return &m_slider; }
    TrimmerModel* trimmer() { return &m_trimmer; }
    bool hasTrimmer() const;
    double height() const { return stripHeight(m_slider.showsHint()); }
    double sliderBoxHeight() const;
    bool hasMedia() const;
    QString playIcon() const;
    QString playTextKey() const;
    double time() const;
    double duration() const;
    QString timeText() const;
    QString lengthText() const;
    bool lengthHasIcon() const;
    bool showsFullScreenButton() const;
    QString fullScreenIcon() const;
    QString fullScreenTextKey() const;
    bool isWindowActive() const { return m_isWindowActive; }
    void setWindowActive(bool isActive);

    Q_INVOKABLE void togglePlayback();
    Q_INVOKABLE void toggleFullScreen();
    /// A key on the focused slider (Qt::Key, Qt::KeyboardModifiers); false when it is none that scrubs.
    Q_INVOKABLE bool scrub(int key, int modifiers);

Q_SIGNALS:
    void changed();
    void timeChanged();
    void isWindowActiveChanged();

private:
    void cancelGestures();

    CompositorViewModel& m_session;
    TimelineActions m_actions{m_session};
    SimpleSliderModel m_slider;
    TrimmerModel m_trimmer{m_session, m_actions, this};
    bool m_isWindowActive = false;
};

}
