// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/playback/Player.h"
#include "media/playback/SoundTime.h"
#include "platform/Clock.h"

#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>

namespace zumeta {

class SoundQueue;

/// Decodes a player's sound, brings it to the player's rate and puts it into the queue, on a thread of its own that
/// sleeps when there is nothing to do. Its methods belong to the main thread and wait for nothing; only the end waits
/// for the thread, which gives up at once.
class SoundFeed {
public:
    SoundFeed(SoundQueue& queue, const Clock& clock);
    ~SoundFeed();
    SoundFeed(const SoundFeed&) = delete; // a thread holds its address
    SoundFeed& operator=(const SoundFeed&) = delete;

    /// What the runs from here on are taken from. A file is opened when the first of them asks for it.
    void setItem(std::optional<PlayerItem> item);
    bool hasItem() const { return m_item != nullptr; }
    /// Makes the run with this serial, and none that was asked for before.
    void makeRun(uint64_t serial, SoundTime time);
    /// Makes none.
    void rest();

private:
    struct Item;
    struct Order {
        uint64_t serial = 0;
        SoundTime time;
        std::shared_ptr<Item> item;
        std::stop_token stop;
    };

    void work(const std::stop_token& stop);
    void carryOut(const Order& order);
    void makeSound(const Order& order);

    SoundQueue& m_queue;
    const Clock& m_clock;
    // Main thread.
    std::shared_ptr<Item> m_item;
    std::stop_source m_orderStop;
    // Both, under the mutex.
    std::mutex m_mutex;
    std::condition_variable_any m_news;
    std::optional<Order> m_next;

    std::jthread m_thread; ///< last: it uses all the others
};

}
