// SPDX-License-Identifier: GPL-3.0-or-later
#include "PrivateBus.h"

#include <QCoreApplication>
#include <QDBusUnixFileDescriptor>
#include <QElapsedTimer>
#include <array>
#include <csignal>
#include <fcntl.h>
#include <fstream>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

namespace zumeta::test {

namespace {

struct Pipe {
    FileDescriptor reading;
    FileDescriptor writing;

    Pipe()
    {
        std::array<int, 2> ends{};
        if (::pipe2(ends.data(), O_CLOEXEC) != 0)
            throw std::system_error(errno, std::generic_category(), "pipe");
        reading = FileDescriptor(ends[0]);
        writing = FileDescriptor(ends[1]);
    }
};

std::string writeConfig(const TemporaryFolder& folder)
{
    std::string file = folder.file("bus.conf").native();
    std::ofstream(file) << "<busconfig><type>zumeta-test</type><listen>unix:dir=" << folder.path().native()
                        << "</listen><auth>EXTERNAL</auth><policy context=\"default\"><allow send_destination=\"*\"/>"
                           "<allow own=\"*\"/><allow eavesdrop=\"false\"/></policy></busconfig>";
    return file;
}

}

Companion::Companion(std::vector<std::string> words)
{
    Pipe out;
    posix_spawn_file_actions_t actions{};
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, out.writing.get(), STDOUT_FILENO);
    std::vector<char*> pointers;
    for (std::string& word : words)
        pointers.push_back(word.data());
    pointers.push_back(nullptr);
    const int error = posix_spawnp(&m_process, pointers.front(), &actions, nullptr, pointers.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (error != 0)
        throw std::system_error(error, std::generic_category(), words.front());
    m_out = std::move(out.reading);
}

std::string Companion::line() const
{
    std::string line;
    char letter = 0;
    while (::read(m_out.get(), &letter, 1) == 1 && letter != '\n')
        line += letter;
    return line;
}

bool Companion::hasSaidMore() const
{
    pollfd state{m_out.get(), POLLIN, 0};
    return ::poll(&state, 1, 0) > 0;
}

void Companion::kill()
{
    if (m_process > 0) {
        ::kill(m_process, SIGKILL);
        ::waitpid(m_process, nullptr, 0);
    }
    m_process = -1;
}

PrivateBus::PrivateBus()
    : m_daemon({"dbus-daemon", "--nofork", "--print-address=1", "--config-file=" + writeConfig(m_folder)})
    , m_address(QString::fromStdString(m_daemon.line()))
{}

QDBusConnection PrivateBus::connection(const QString& name) const
{
    return QDBusConnection::connectToBus(m_address, name);
}

FakeLoginService::FakeLoginService(QDBusConnection bus, Answer answer)
    : m_bus(std::move(bus))
    , m_answer(answer)
{
    m_bus.registerVirtualObject(QStringLiteral("/org/freedesktop/login1"), this);
    if (!m_bus.registerService(QStringLiteral("org.freedesktop.login1")))
        throw std::runtime_error("the private bus does not answer");
}

bool FakeLoginService::handleMessage(const QDBusMessage& message, const QDBusConnection&)
{
    if (message.interface() != QLatin1String("org.freedesktop.login1.Manager"))
        return false;
    if (message.member() != QLatin1String("Inhibit")) // answered in its turn, which is all that is asked of it
        return m_bus.send(message.createReply());
    message.setDelayedReply(true);
    requests.push_back(message);
    if (m_answer == Answer::atOnce)
        grant(message);
    else if (m_answer == Answer::whenAsked)
        m_waiting.push_back(message);
    else if (m_answer == Answer::refusal)
        m_bus.send(message.createErrorReply(QDBusError::AccessDenied, QStringLiteral("not for you")));
    else
        m_bus.send(message.createReply(QStringLiteral("no file at all")));
    return true;
}

void FakeLoginService::answer()
{
    for (const QDBusMessage& request : std::exchange(m_waiting, {}))
        grant(request);
}

void FakeLoginService::grant(const QDBusMessage& request)
{
    Pipe pipe;
    m_bus.send(request.createReply(QVariant::fromValue(QDBusUnixFileDescriptor(pipe.writing.get()))));
    m_pipes.push_back(std::move(pipe.reading));
}

bool FakeLoginService::isHeld() const
{
    for (const FileDescriptor& end : m_pipes) {
        pollfd state{end.get(), POLLIN, 0};
        if (::poll(&state, 1, 0) == 0)
            return true;
    }
    return false;
}

bool becomesTrue(const std::function<bool()>& condition)
{
    QElapsedTimer timer;
    timer.start();
    while (!condition() && timer.elapsed() < 10'000)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    return condition();
}

}
