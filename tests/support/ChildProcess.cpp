// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/ChildProcess.h"

#include "platform/FileDescriptor.h"

#include <array>
#include <csignal>

#include <fcntl.h>
#include <optional>
#include <poll.h>
#include <spawn.h>
#include <stdexcept>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

// Not QProcess: it runs the first steps of the child within this process's memory. ThreadSanitizer takes them for this
// thread's, and follows none of its locks from then on.

namespace zumeta::test {

namespace {

using TimePoint = std::chrono::steady_clock::time_point;

struct Pipe {
    FileDescriptor reading;
    FileDescriptor writing;

    Pipe()
    {
        std::array<int, 2> ends{};
        if (pipe2(ends.data(), O_CLOEXEC) != 0)
            throw std::system_error(errno, std::generic_category(), "pipe");
        reading = FileDescriptor(ends[0]);
        writing = FileDescriptor(ends[1]);
    }
};

class Child {
public:
    explicit Child(const ProcessRequest& request);
    ~Child() { end(); }
    Child(const Child&) = delete; // it stands for a process
    Child& operator=(const Child&) = delete;

    bool isStarted() const { return m_pid > 0; }
    /// Feeds and drains it until it has closed its output. False: out of time.
    bool serve(ProcessResult& result, TimePoint deadline);
    /// The exit code; -1 for a child that was killed. Absent when it has not ended in time.
    std::optional<int> waitUntil(TimePoint deadline);
    void end();

private:
    void feed();
    void drain(FileDescriptor& from, const std::function<void(const QByteArray&)>& take);

    const ProcessRequest& m_request;
    FileDescriptor m_in;
    FileDescriptor m_out;
    FileDescriptor m_err;
    QByteArray m_waiting; ///< input that the child has not taken yet
    pid_t m_pid = -1;
};

Child::Child(const ProcessRequest& request)
    : m_request(request)
{
    Pipe in;
    Pipe out;
    Pipe err;
    posix_spawn_file_actions_t actions{};
    posix_spawn_file_actions_init(&actions);
    if (request.input)
        posix_spawn_file_actions_adddup2(&actions, in.reading.get(), STDIN_FILENO);
    else
        posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_adddup2(&actions, out.writing.get(), STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&actions, err.writing.get(), STDERR_FILENO);
    // A child that ends early must not end this process; the child itself is to be as a shell would start it.
    std::signal(SIGPIPE, SIG_IGN);
    posix_spawnattr_t attributes{};
    posix_spawnattr_init(&attributes);
    sigset_t pipeSignal{};
    sigemptyset(&pipeSignal);
    sigaddset(&pipeSignal, SIGPIPE);
    posix_spawnattr_setsigdefault(&attributes, &pipeSignal);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGDEF);

    std::vector<std::string> words = {request.program};
    words.insert(words.end(), request.arguments.begin(), request.arguments.end());
    std::vector<char*> pointers;
    pointers.reserve(words.size() + 1);
    for (std::string& word : words)
        pointers.push_back(word.data());
    pointers.push_back(nullptr);
    if (posix_spawnp(&m_pid, request.program.c_str(), &actions, &attributes, pointers.data(), environ) != 0)
        m_pid = -1;
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&actions);

    m_in = std::move(in.writing);
    if (!request.input)
        m_in.close();
    m_out = std::move(out.reading);
    m_err = std::move(err.reading);
    for (const FileDescriptor* const end : {&m_in, &m_out, &m_err})
        fcntl(end->get(), F_SETFL, O_NONBLOCK);
}

void Child::feed()
{
    if (m_waiting.isEmpty())
        m_waiting = m_request.input();
    if (m_waiting.isEmpty()) {
        m_in.close();
        return;
    }
    const ssize_t count = write(m_in.get(), m_waiting.constData(), size_t(m_waiting.size()));
    if (count > 0)
        m_waiting.remove(0, count);
    else if (errno != EAGAIN && errno != EINTR)
        m_in.close(); // it does not want to know the rest
}

void Child::drain(FileDescriptor& from, const std::function<void(const QByteArray&)>& take)
{
    QByteArray piece(1 << 16, Qt::Uninitialized);
    const ssize_t count = read(from.get(), piece.data(), size_t(piece.size()));
    if (count > 0)
        take(piece.left(count));
    else if (count == 0 || (errno != EAGAIN && errno != EINTR))
        from.close();
}

int millisecondsUntil(TimePoint deadline)
{
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - std::chrono::steady_clock::now());
    return int(std::max<int64_t>(left.count(), 0));
}

bool Child::serve(ProcessResult& result, TimePoint deadline)
{
    while (m_out.isOpen() || m_err.isOpen()) {
        // Closed ones have a negative number, which poll() passes over.
        std::array<pollfd, 3> ends = {pollfd{m_in.get(), POLLOUT, 0}, pollfd{m_out.get(), POLLIN, 0},
                                      pollfd{m_err.get(), POLLIN, 0}};
        const int left = millisecondsUntil(deadline);
        if (left == 0)
            return false;
        poll(ends.data(), ends.size(), left);
        if (ends[0].revents != 0)
            feed();
        if (ends[1].revents != 0)
            drain(
                m_out, m_request.output ? m_request.output : [&](const QByteArray& piece) { result.out += piece; });
        if (ends[2].revents != 0)
            drain(m_err, [&](const QByteArray& piece) { result.err += piece; });
    }
    return true;
}

std::optional<int> Child::waitUntil(TimePoint deadline)
{
    int status = 0;
    while (true) {
        if (waitpid(m_pid, &status, WNOHANG) == m_pid)
            break;
        if (millisecondsUntil(deadline) == 0)
            return std::nullopt;
        usleep(1000);
    }
    m_pid = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

void Child::end()
{
    if (m_pid <= 0)
        return;
    kill(m_pid, SIGKILL);
    waitpid(m_pid, nullptr, 0);
    m_pid = -1;
}

}

ProcessResult runProcess(const ProcessRequest& request)
{
    const TimePoint deadline = std::chrono::steady_clock::now() + request.limit;
    ProcessResult result;
    Child child(request);
    if (!child.isStarted()) {
        result.err = "could not start " + QByteArray::fromStdString(request.program);
        return result;
    }
    const bool isServed = child.serve(result, deadline);
    const std::optional<int> code = isServed ? child.waitUntil(deadline) : std::nullopt;
    result.timedOut = !code;
    result.exitCode = code.value_or(-1);
    return result;
}

QByteArray runOrThrow(const ProcessRequest& request)
{
    const ProcessResult result = runProcess(request);
    if (result.exitCode != 0) {
        std::string command = request.program;
        for (const std::string& argument : request.arguments)
            command += ' ' + argument;
        throw std::runtime_error(command + (result.timedOut ? ": out of time: " : ": ") + result.err.toStdString());
    }
    return result.out;
}

}
