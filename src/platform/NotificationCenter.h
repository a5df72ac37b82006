// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QPointer>
#include <QString>
#include <QVariantMap>
#include <functional>
#include <vector>

namespace zumeta {

/// Messages between parts that do not know each other, such as keys and the session. Main thread.
class NotificationCenter {
public:
    using Observer = std::function<void(const QVariantMap& userInfo)>;

    /// Lasts as long as `owner`. Observers are called in the order in which they came.
    void observe(const QString& name, QObject* owner, Observer observer);
    /// Calls every observer of this name before it returns. One that is added meanwhile is not called.
    void post(const QString& name, const QVariantMap& userInfo = {});

private:
    struct Entry {
        QString name;
        QPointer<QObject> owner;
        Observer observer;
    };
    std::vector<Entry> m_entries;
};

namespace notifications {

inline const QString kStepFrames = QStringLiteral("com.zumetaapp.stepFrames");
inline const QString kMarkSyncPoint = QStringLiteral("com.zumetaapp.markSyncPoint");
inline const QString kTogglePlaybackShortcut = QStringLiteral("com.zumetaapp.togglePlaybackShortcut");
inline const QString kPausePlaybackShortcut = QStringLiteral("com.zumetaapp.pausePlaybackShortcut");
inline const QString kAdjustPlaybackRateShortcut = QStringLiteral("com.zumetaapp.adjustPlaybackRateShortcut");
inline const QString kNavigateTrimMarker = QStringLiteral("com.zumetaapp.navigateTrimMarker");
inline const QString kSetTrimPointToPlayhead = QStringLiteral("com.zumetaapp.setTrimPointToPlayhead");
inline const QString kDeleteSelectedTrimMarker = QStringLiteral("com.zumetaapp.deleteSelectedTrimMarker");
inline const QString kUndoStepEdit = QStringLiteral("com.zumetaapp.undoStepEdit");
inline const QString kRedoStepEdit = QStringLiteral("com.zumetaapp.redoStepEdit");
inline const QString kClearTextFieldFocus = QStringLiteral("com.zumetaapp.clearTextFieldFocus");
inline const QString kAdjustFocusedNumericField = QStringLiteral("com.zumetaapp.adjustFocusedNumericField");
inline const QString kShowFirstRunGuide = QStringLiteral("com.zumetaapp.showFirstRunGuide");
inline const QString kRequestReviewAfterFirstExport = QStringLiteral("com.zumetaapp.requestReviewAfterFirstExport");

}

}
