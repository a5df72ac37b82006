// SPDX-License-Identifier: GPL-3.0-or-later
#include "zumeta-render/RenderArguments.h"

#include "render/CompositeGeometry.h"

#include <charconv>
#include <cmath>
#include <functional>
#include <map>

namespace zumeta {

const char* const kRenderUsage =
    R"(usage: zumeta-render PROJECT.zumetaproj OUTPUT.mp4 [--resolution SIZE] [--camera NAME]
       zumeta-render --above FILE [--above FILE2 …] --below FILE [--below …] [values] OUTPUT.mp4

Joins an above-water and a below-water video of one swim into one movie.

  --sync-above S --sync-below S    time of the landmark in each video, seconds
  --point-above N --point-below N  height of the water surface in each picture, 0 bottom to 1 top;
                                   the two set the offset and the waterline
  --waterline U                    height of the waterline  (U: 600 units are the picture's height)
  --offset U                       shift of the above picture upward
  --horizontal-offset U            shift of the above picture to the right
  --zoom P                         zoom of the above picture in percent, on top of the camera's
  --blend U                        height of the soft edge, 15 when not given
  --timing H                       shift between the videos, hundredths of a second
  --trim-start S --trim-end S      seconds cut from the start and the end
  --camera gopro|insta360          the camera, gopro when not given
  --resolution 720p|960p|1080p|1440p|4K
                                   size of the movie; chosen from the above video when not given
  --keep PROJECT.zumetaproj        also write the composition as a project file
  --quiet                          no progress
  --help                           this text
  --                               what follows is no option

exit status: 0 done, 1 the export failed, 2 wrong usage
)";

namespace {

struct UsageError {
    std::string reason;
};

double parsedNumber(const std::string& option, const std::string& text)
{
    double value = 0;
    const char* const begin = text.data() + (text.starts_with('+') ? 1 : 0);
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(begin, end, value);
    if (error != std::errc() || stop != end || !std::isfinite(value))
        throw UsageError{option + " needs a number, not '" + text + "'"};
    return value;
}

/// Collects what the options say, then checks that they fit together.
class Parser {
public:
    RenderRequest parse(const std::vector<std::string>& arguments);

private:
    void addOptions();
    void number(const std::string& option, double VideoCompositionConfig::*field);
    void numberNotBelowZero(const std::string& option, double VideoCompositionConfig::*field);
    void point(const std::string& option, std::optional<double>& target);
    void finish();
    void finishProject();
    void finishFiles();
    static FileUrl file(const std::string& what, const std::string& name);

    RenderRequest m_request;
    std::map<std::string, std::function<void(const std::string&)>> m_options;
    std::vector<std::string> m_positional;
    std::map<std::string, int> m_seen;
    std::optional<double> m_pointAbove;
    std::optional<double> m_pointBelow;
};

void Parser::number(const std::string& option, double VideoCompositionConfig::*field)
{
    m_options[option] = [this, option, field](const std::string& text) {
        m_request.config.*field = parsedNumber(option, text);
    };
}

void Parser::numberNotBelowZero(const std::string& option, double VideoCompositionConfig::*field)
{
    m_options[option] = [this, option, field](const std::string& text) {
        const double value = parsedNumber(option, text);
        if (value < 0)
            throw UsageError{option + " cannot be below 0"};
        m_request.config.*field = value;
    };
}

void Parser::point(const std::string& option, std::optional<double>& target)
{
    m_options[option] = [option, &target](const std::string& text) {
        target = parsedNumber(option, text);
        if (*target < 0 || *target > 1)
            throw UsageError{option + " lies between 0 (bottom) and 1 (top)"};
    };
}

void Parser::addOptions()
{
    using Config = VideoCompositionConfig;
    numberNotBelowZero("--sync-above", &Config::aboveStartTime);
    numberNotBelowZero("--sync-below", &Config::belowStartTime);
    number("--waterline", &Config::waterlineHeight);
    number("--offset", &Config::aboveOffset);
    number("--horizontal-offset", &Config::aboveHorizontalOffset);
    number("--zoom", &Config::aboveZoom);
    numberNotBelowZero("--blend", &Config::blendAmount);
    number("--timing", &Config::timingOffset);
    numberNotBelowZero("--trim-start", &Config::exportTrimStartSeconds);
    numberNotBelowZero("--trim-end", &Config::exportTrimEndSeconds);
    point("--point-above", m_pointAbove);
    point("--point-below", m_pointBelow);
    m_options["--above"] = [this](const std::string& text) { m_request.aboveFiles.push_back(file("--above", text)); };
    m_options["--below"] = [this](const std::string& text) { m_request.belowFiles.push_back(file("--below", text)); };
    m_options["--keep"] = [this](const std::string& text) { m_request.keep = file("--keep", text); };
    m_options["--resolution"] = [this](const std::string& text) {
        m_request.resolution = exportResolutionFromRawValue(QString::fromUtf8(text.c_str()));
        if (!m_request.resolution)
            throw UsageError{"--resolution is one of 720p, 960p, 1080p, 1440p, 4K, not '" + text + "'"};
    };
    m_options["--camera"] = [this](const std::string& text) {
        if (text != "gopro" && text != "insta360")
            throw UsageError{"--camera is gopro or insta360, not '" + text + "'"};
        m_request.camera = text == "gopro" ? CameraType::gopro : CameraType::insta360;
    };
}

RenderRequest Parser::parse(const std::vector<std::string>& arguments)
{
    addOptions();
    bool optionsEnded = false;
    for (size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        if (optionsEnded || !argument.starts_with('-') || argument == "-") {
            m_positional.push_back(argument);
            continue;
        }
        if (argument == "--") {
            optionsEnded = true;
            continue;
        }
        if (argument == "--quiet") {
            m_request.quiet = true;
            continue;
        }
        const size_t equals = argument.find('=');
        const std::string name = argument.substr(0, equals);
        const auto option = m_options.find(name);
        if (option == m_options.end())
            throw UsageError{"unknown option " + name};
        if (equals == std::string::npos && i + 1 == arguments.size())
            throw UsageError{name + " needs a value"};
        if (++m_seen[name] > 1 && name != "--above" && name != "--below")
            throw UsageError{name + " is given twice"};
        option->second(equals == std::string::npos ? arguments[++i] : argument.substr(equals + 1));
    }
    finish();
    return m_request;
}

void Parser::finish()
{
    if (!m_request.aboveFiles.empty() || !m_request.belowFiles.empty())
        finishFiles();
    else
        finishProject();
    m_request.output = file("the output", m_positional.back());
}

FileUrl Parser::file(const std::string& what, const std::string& name)
{
    if (name.empty())
        throw UsageError{what + " needs the name of a file"};
    return FileUrl(name);
}

void Parser::finishProject()
{
    if (m_positional.size() != 2)
        throw UsageError{m_positional.size() < 2
                             ? "a project and an output are needed, or --above, --below and an output"
                             : "too many files"};
    for (const auto& [name, count] : m_seen) {
        if (name != "--resolution" && name != "--camera")
            throw UsageError{name + " does not go with a project"};
    }
    m_request.project = file("the project", m_positional.front());
}

void Parser::finishFiles()
{
    if (m_request.aboveFiles.empty())
        throw UsageError{"--above is missing"};
    if (m_request.belowFiles.empty())
        throw UsageError{"--below is missing"};
    if (m_positional.size() != 1)
        throw UsageError{m_positional.empty() ? "the output is missing" : "too many files"};
    m_request.config.isSynced = true;
    if (!m_pointAbove && !m_pointBelow)
        return;
    if (!m_pointAbove || !m_pointBelow)
        throw UsageError{"--point-above and --point-below go together"};
    if (m_seen.contains("--waterline") || m_seen.contains("--offset"))
        throw UsageError{"--waterline and --offset do not go with --point-above and --point-below"};
    // The pick is made on the picture as the camera's zoom shows it.
    VideoCompositionConfig shown = m_request.config;
    shown.aboveZoom += baseZoom(m_request.camera);
    m_request.config.waterlineHeight = waterlineHeightAt(*m_pointBelow, shown.scaleFactor());
    m_request.config.aboveOffset = aboveOffsetBetween(*m_pointAbove, *m_pointBelow);
}

}

std::variant<RenderRequest, HelpWanted, WrongUsage> parseRenderArguments(const std::vector<std::string>& arguments)
{
    for (const std::string& argument : arguments) {
        if (argument == "--")
            break;
        if (argument == "--help" || argument == "-h")
            return HelpWanted{};
    }
    try {
        return Parser().parse(arguments);
    } catch (const UsageError& error) {
        return WrongUsage{error.reason};
    }
}

}
