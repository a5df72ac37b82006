// SPDX-License-Identifier: GPL-3.0-or-later
#include "SampleSwim.h"

#include "support/ChildProcess.h"

#include <fcntl.h>
#include <fstream>
#include <map>
#include <sstream>
#include <stdexcept>
#include <sys/file.h>
#include <unistd.h>

namespace zumeta::test {

namespace {

namespace fs = std::filesystem;

/// Holds other test programs off while one draws.
class FolderLock {
public:
    explicit FolderLock(const fs::path& folder)
        : m_descriptor(::open((folder / "lock").c_str(), O_CREAT | O_RDWR | O_CLOEXEC, 0666))
    {
        if (m_descriptor < 0 || ::flock(m_descriptor, LOCK_EX) != 0)
            throw std::runtime_error("the folder of the samples cannot be locked");
    }
    ~FolderLock() { ::close(m_descriptor); }
    FolderLock(const FolderLock&) = delete; // it stands for the one lock
    FolderLock& operator=(const FolderLock&) = delete;

private:
    int m_descriptor;
};

std::string textIn(const fs::path& file)
{
    std::ifstream stream(file);
    return {std::istreambuf_iterator<char>(stream), {}};
}

/// The folder with the sample and what was printed about it, drawn anew when the program has changed since.
fs::path drawn(int width, int height)
{
    const fs::path samples = SAMPLE_FOLDER;
    fs::create_directories(samples);
    const fs::path folder = samples / (std::to_string(width) + "x" + std::to_string(height));
    const std::string stamp = std::to_string(fs::last_write_time(SAMPLE_SWIM).time_since_epoch().count());
    const FolderLock lock(samples);
    if (textIn(folder / "stamp") == stamp)
        return folder;
    fs::remove_all(folder);
    const QByteArray said = runOrThrow({SAMPLE_SWIM,
                                        {folder.string(), "--width", std::to_string(width), "--height",
                                         std::to_string(height), "--seconds", "4", "--quiet"},
                                        std::chrono::seconds(240),
                                        {},
                                        {}});
    std::ofstream(folder / "said") << said.toStdString();
    std::ofstream(folder / "stamp") << stamp;
    return folder;
}

SampleSwim sample(int width, int height)
{
    const fs::path folder = drawn(width, height);
    SampleSwim swim;
    swim.width = width;
    swim.height = height;
    std::istringstream said(textIn(folder / "said"));
    std::map<std::string, double> numbers;
    for (std::string line; std::getline(said, line) && !line.empty();) {
        std::istringstream words(line);
        std::string name;
        words >> name;
        if (name == "above" || name == "below") {
            for (std::string file; words >> file;)
                name == "above" ? swim.above.emplace_back(file) : swim.below = file;
        } else {
            words >> numbers[name];
        }
    }
    swim.landmarkAbove = numbers.at("landmark-above");
    swim.landmarkBelow = numbers.at("landmark-below");
    swim.beepAbove = numbers.at("beep-above");
    swim.surfaceAbove = numbers.at("surface-above");
    swim.surfaceBelow = numbers.at("surface-below");
    return swim;
}

}

const SampleSwim& SampleSwim::wide()
{
    static const SampleSwim swim = sample(640, 360);
    return swim;
}

const SampleSwim& SampleSwim::fourByThree()
{
    static const SampleSwim swim = sample(640, 480);
    return swim;
}

std::vector<std::string> SampleSwim::files() const
{
    return {"--above", above[1], "--above", above[0], "--below", below};
}

std::vector<std::string> SampleSwim::arguments() const
{
    return files() + std::vector<std::string>{
                         "--sync-above",  std::to_string(landmarkAbove), "--sync-below",  std::to_string(landmarkBelow),
                         "--point-above", std::to_string(surfaceAbove),  "--point-below", std::to_string(surfaceBelow)};
}

SampleSwim SampleSwim::copiedTo(const fs::path& folder) const
{
    fs::create_directories(folder);
    SampleSwim copy = *this;
    for (fs::path* const file : {&copy.above[0], &copy.above[1], &copy.below}) {
        const fs::path place = folder / file->filename();
        fs::copy_file(*file, place);
        *file = place;
    }
    return copy;
}

std::vector<std::string> operator+(std::vector<std::string> a, const std::vector<std::string>& b)
{
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

}
