// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace zumeta {

/// Half-open range of rows or columns.
struct Span {
    int begin = 0;
    int end = 0;
    bool isEmpty() const { return begin >= end; }
    int length() const { return end - begin; }
    friend bool operator==(const Span&, const Span&) = default;
};

}
