// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/preview/PreviewComposer.h"

#include "PreviewSources.h"
#include "render/preview/PreviewCompositor.h"

#include <atomic>
#include <future>
#include <gtest/gtest.h>
#include <semaphore>

namespace zumeta::test {

namespace {

PreviewRequest requestWithLineAt(double waterlineHeight)
{
    PreviewSituation situation = bothSides();
    situation.values.waterlineHeight = waterlineHeight;
    return previewRequest(situation).value();
}

std::vector<uint32_t> pixelsOf(const PreviewRequest& request)
{
    PreviewCompositor compositor(1);
    return *compositor.composeForScreen(request).pixels;
}

/// Counts the pictures, and lets each go on only when it is told.
struct HeldComposer {
    std::counting_semaphore<64> finished{0};
    std::counting_semaphore<64> mayGoOn{0};
    PreviewComposer composer{[this] {
        finished.release();
        mayGoOn.acquire();
    }};
    ~HeldComposer() { mayGoOn.release(32); }
};

}

TEST(PreviewComposer, GivesThePictureThatWasAskedFor)
{
    std::counting_semaphore<8> finished{0};
    PreviewComposer composer([&] { finished.release(); });
    const PreviewRequest request = requestWithLineAt(200);
    const uint64_t number = composer.ask(request);
    finished.acquire();
    const std::optional<ComposedPreview> composed = composer.takeNewest();
    ASSERT_TRUE(composed);
    EXPECT_EQ(composed->number, number);
    EXPECT_EQ(*composed->picture.pixels, pixelsOf(request));
}

TEST(PreviewComposer, GivesAPictureOnce)
{
    std::counting_semaphore<8> finished{0};
    PreviewComposer composer([&] { finished.release(); });
    EXPECT_FALSE(composer.takeNewest());
    composer.ask(requestWithLineAt(200));
    finished.acquire();
    EXPECT_TRUE(composer.takeNewest());
    EXPECT_FALSE(composer.takeNewest());
}

TEST(PreviewComposer, DropsWhatHasNotBegunForTheNewest)
{
    HeldComposer held;
    const uint64_t first = held.composer.ask(requestWithLineAt(100));
    held.finished.acquire(); // it stands in its report
    for (const double height : {110.0, 120.0, 130.0})
        held.composer.ask(requestWithLineAt(height));
    const PreviewRequest newest = requestWithLineAt(140);
    const uint64_t last = held.composer.ask(newest);
    EXPECT_EQ(held.composer.takeNewest()->number, first);
    held.mayGoOn.release();
    held.finished.acquire();
    const std::optional<ComposedPreview> composed = held.composer.takeNewest();
    ASSERT_TRUE(composed);
    EXPECT_EQ(composed->number, last);
    EXPECT_EQ(*composed->picture.pixels, pixelsOf(newest));
    held.mayGoOn.release();
    EXPECT_FALSE(held.finished.try_acquire_for(std::chrono::milliseconds(50))) << "those between were composed too";
}

TEST(PreviewComposer, NeverKeepsTheCallerWaiting)
{
    HeldComposer held;
    held.composer.ask(requestWithLineAt(100));
    held.finished.acquire();
    // The composing thread stands still: whoever waited for it would wait for ever.
    std::future<void> asking = std::async(std::launch::async, [&] {
        held.composer.ask(requestWithLineAt(110));
        held.composer.takeNewest();
    });
    EXPECT_EQ(asking.wait_for(std::chrono::seconds(20)), std::future_status::ready);
}

TEST(PreviewComposer, LetsGoOfPicturesItDropped)
{
    HeldComposer held;
    held.composer.ask(requestWithLineAt(100));
    held.finished.acquire();
    PreviewRequest dropped = requestWithLineAt(110);
    const std::weak_ptr<const void> picture = dropped.above->owner;
    held.composer.ask(std::move(dropped));
    held.composer.ask(requestWithLineAt(120));
    held.mayGoOn.release();
    held.finished.acquire();
    EXPECT_TRUE(picture.expired());
}

TEST(PreviewComposer, PicturesStayWholeWhileOthersAreComposed)
{
    std::counting_semaphore<256> finished{0};
    PreviewComposer composer([&] { finished.release(); });
    const PreviewRequest first = requestWithLineAt(80);
    composer.ask(first);
    finished.acquire();
    const ComposedPreview kept = *composer.takeNewest();
    std::vector<ComposedPreview> shown;
    for (int i = 0; i < 12; ++i) {
        composer.ask(requestWithLineAt(90 + 10 * i));
        finished.acquire();
        shown.push_back(*composer.takeNewest());
        if (shown.size() > 2)
            shown.erase(shown.begin());
    }
    EXPECT_EQ(*kept.picture.pixels, pixelsOf(first));
}

TEST(PreviewComposer, EndsWithRequestsStillWaiting)
{
    constexpr int kRequests = 2000; // far more than are composed while they are asked
    const PreviewRequest request = requestWithLineAt(100);
    std::atomic<int> finished = 0;
    {
        PreviewComposer composer([&] { ++finished; });
        for (int i = 0; i < kRequests; ++i)
            composer.ask(request);
    }
    EXPECT_LT(finished, kRequests);
}

}
