// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <variant>
#include <vector>

namespace zumeta {

// What a gesture on the timeline asks for. The gestures decide; who owns them carries out what they ask, in its order.

/// The first drag has begun, or the last one is over. The session is told, and playback rests meanwhile (DragResume).
struct DraggingChanged {
    bool isDragging;
    friend bool operator==(const DraggingChanged&, const DraggingChanged&) = default;
};

/// The playhead goes here, to the very frame. Never beyond the timeline.
struct Seek {
    double time; ///< seconds
    friend bool operator==(const Seek&, const Seek&) = default;
};

/// The user has used the plain slider: its hint has done its work.
struct SliderMoved {
    friend bool operator==(const SliderMoved&, const SliderMoved&) = default;
};

/// A trim is about to change: undo comes back to before it, and it counts as taking part in the guide.
struct BeginTrimEdit {
    friend bool operator==(const BeginTrimEdit&, const BeginTrimEdit&) = default;
};

/// The seconds that are cut from the front of the composite.
struct SetTrimStart {
    double seconds;
    friend bool operator==(const SetTrimStart&, const SetTrimStart&) = default;
};

/// The seconds that are cut from its end.
struct SetTrimEnd {
    double seconds;
    friend bool operator==(const SetTrimEnd&, const SetTrimEnd&) = default;
};

struct MarkerTapped {
    double marker; ///< its time, seconds
    friend bool operator==(const MarkerTapped&, const MarkerTapped&) = default;
};

struct MarkerDragStarted {
    double marker; ///< its time, seconds
    friend bool operator==(const MarkerDragStarted&, const MarkerDragStarted&) = default;
};

/// The marker whose drag has started goes here.
struct MarkerMoved {
    double time; ///< seconds
    friend bool operator==(const MarkerMoved&, const MarkerMoved&) = default;
};

using TimelineIntent = std::variant<DraggingChanged, Seek, SliderMoved, BeginTrimEdit, SetTrimStart, SetTrimEnd,
                                    MarkerTapped, MarkerDragStarted, MarkerMoved>;
using TimelineIntents = std::vector<TimelineIntent>;

}
