// SPDX-License-Identifier: GPL-3.0-or-later
// usage: make-proxy SOURCE FOLDER [REPEATS]
//
// Makes the proxy of one recording in a folder, as the application does, or finds it there, and prints its path; then
// asks for it again so many times and prints the milliseconds of each. A failure is one line on standard error.
#include "media/ProxyGenerator.h"
#include "render/CompositorScaling.h"

#include <QCoreApplication>
#include <QCoroTask>
#include <chrono>
#include <cstdio>
#include <cstdlib>

namespace {

using namespace zumeta;

Task<ProxyOutcome> made(ProxyGenerator& generator, FileUrl source)
{
    co_return co_await generator.generateProxy(source, ProxyConfig::defaultConfig(), {});
}

}

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    if (argc < 3) {
        std::fputs("usage: make-proxy SOURCE FOLDER [REPEATS]\n", stderr);
        return 2;
    }
    EventLoopQueue queue;
    ProxyGenerator generator(queue, argv[2], transcodingExports(compositorScaling()));
    const FileUrl source(argv[1]);
    const ProxyOutcome outcome = QCoro::waitFor(made(generator, source));
    if (const ProxyError* const error = std::get_if<ProxyError>(&outcome)) {
        std::fprintf(stderr, "make-proxy: %s\n", qUtf8Printable(error->description));
        return 1;
    }
    std::printf("%s\n", std::get<FileUrl>(outcome).path().c_str());
    const int repeats = argc > 3 ? std::atoi(argv[3]) : 0;
    for (int i = 0; i < repeats; ++i) {
        const auto start = std::chrono::steady_clock::now();
        QCoro::waitFor(made(generator, source));
        const std::chrono::duration<double, std::milli> passed = std::chrono::steady_clock::now() - start;
        std::printf("%.3f\n", passed.count());
    }
    return 0;
}
