// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "model/VideoCompositionConfig.h"

#include <QPointF>
#include <map>
#include <span>
#include <utility>

namespace zumeta {

/// The body-pose model of swimmers. Dormant: nothing finds skeletons yet.
class MotionAnalysisService {
public:
    enum class Joint {
        nose,
        leftEye,
        rightEye,
        leftEar,
        rightEar,
        neck,
        leftShoulder,
        rightShoulder,
        leftElbow,
        rightElbow,
        leftWrist,
        rightWrist,
        root,
        leftHip,
        rightHip,
        leftKnee,
        rightKnee,
        leftAnkle,
        rightAnkle
    };
    using Bone = std::pair<Joint, Joint>;

    /// One person in one picture. Places are fractions of the picture, y counted from its bottom.
    struct Skeleton {
        int id = 0; ///< number of the person, unique in one picture
        std::map<Joint, QPointF> joints;
        double confidence = 0;
        Rect boundingBox;

        /// The joints to join, in the order of drawing.
        static std::span<const Bone> boneConnections();
        static bool isRightSide(Joint joint);

        friend bool operator==(const Skeleton&, const Skeleton&) = default;
    };
};

}
