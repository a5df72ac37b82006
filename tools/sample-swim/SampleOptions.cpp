// SPDX-License-Identifier: GPL-3.0-or-later
#include "SampleOptions.h"

#include <QCommandLineParser>
#include <QFile>
#include <cmath>
#include <numeric>
#include <optional>

namespace zumeta::swim {

namespace {

const QString kUsage = QStringLiteral(
    R"(usage: sample-swim DIR [--width N] [--height N] [--aspect 16:9|4:3] [--fps N|N/D] [--seconds N] [--quiet]

Draws one swim as two cameras would film it, and writes their recordings into the folder DIR:
  GX010042.MP4 GX020042.MP4   above the water, in two chapters
  GX010117.MP4                below the water; this camera was started a little earlier
and prints when and where the two fit together, with the zumeta-render command that joins them.

  --width N          picture width in pixels, even, 160 to 3840 (default 1280)
  --height N         picture height, even (default: from the width and the aspect)
  --aspect 16:9|4:3  shape of the picture when only one of its sizes is given (default 16:9)
  --fps N|N/D        frames per second, 10 to 120 (default 30000/1001)
  --seconds N        length of the swim, 1 to 600 (default 12)
  --quiet            no progress
  --help             this text

exit 0 done; 1 failed or interrupted, nothing is left behind; 2 wrong usage
)");

std::optional<FrameRate> readRate(const QString& text)
{
    const QStringList parts = text.split(QLatin1Char('/'));
    bool numeratorFine = false;
    bool denominatorFine = parts.size() == 1;
    const qlonglong numerator = parts[0].toLongLong(&numeratorFine);
    const qlonglong denominator = parts.size() == 2 ? parts[1].toLongLong(&denominatorFine) : 1;
    if (!numeratorFine || !denominatorFine || parts.size() > 2 || denominator < 1 || denominator > 100'000)
        return {};
    if (numerator < 10 * denominator || numerator > 120 * denominator)
        return {};
    const qlonglong shared = std::gcd(numerator, denominator);
    return FrameRate{numerator / shared, denominator / shared};
}

std::optional<int> readSize(const QString& text)
{
    bool fine = false;
    const int size = text.toInt(&fine);
    return fine && size % 2 == 0 && size >= 90 && size <= 3840 ? std::optional(size) : std::nullopt;
}

int evenNearest(double size)
{
    return 2 * int(std::lround(size / 2));
}

}

QString helpText()
{
    return kUsage;
}

std::variant<SampleOptions, QString> readOptions(const QStringList& arguments)
{
    const auto option = [](const char* name, const char* value = nullptr) {
        QCommandLineOption made(QString::fromLatin1(name));
        if (value)
            made.setValueName(QString::fromLatin1(value));
        return made;
    };
    const QCommandLineOption width = option("width", "N");
    const QCommandLineOption height = option("height", "N");
    const QCommandLineOption aspect = option("aspect", "W:H");
    const QCommandLineOption fps = option("fps", "N/D");
    const QCommandLineOption seconds = option("seconds", "N");
    const QCommandLineOption quiet = option("quiet");
    const QCommandLineOption help = option("help");
    QCommandLineParser parser;
    parser.addOptions({width, height, aspect, fps, seconds, quiet, help});
    if (!parser.parse(arguments))
        return parser.errorText();

    SampleOptions options;
    options.quiet = parser.isSet(quiet);
    options.help = parser.isSet(help);
    if (options.help)
        return options;
    if (parser.positionalArguments().size() != 1 || parser.positionalArguments()[0].isEmpty())
        return QStringLiteral("one folder is needed");
    options.folder = QFile::encodeName(parser.positionalArguments()[0]).toStdString();

    double shape = 16.0 / 9.0;
    if (parser.value(aspect) == QLatin1String("4:3"))
        shape = 4.0 / 3.0;
    else if (parser.isSet(aspect) && parser.value(aspect) != QLatin1String("16:9"))
        return QStringLiteral("--aspect is 16:9 or 4:3");
    const auto givenWidth = readSize(parser.value(width));
    const auto givenHeight = readSize(parser.value(height));
    if (parser.isSet(width) && (!givenWidth || *givenWidth < 160))
        return QStringLiteral("--width is an even number from 160 to 3840");
    if (parser.isSet(height) && !givenHeight)
        return QStringLiteral("--height is an even number from 90 to 3840");
    options.width = givenWidth ? *givenWidth : givenHeight ? evenNearest(*givenHeight * shape) : 1280;
    options.height = givenHeight ? *givenHeight : evenNearest(options.width / shape);
    if (options.width > 3840 || options.width < options.height || options.width > options.height * 3)
        return QStringLiteral("the picture is wider than high, at most three times, and at most 3840 wide");

    if (parser.isSet(fps)) {
        const auto rate = readRate(parser.value(fps));
        if (!rate)
            return QStringLiteral("--fps is a whole number or a fraction as 60000/1001, 10 to 120");
        options.rate = *rate;
    }
    if (parser.isSet(seconds)) {
        bool fine = false;
        options.seconds = parser.value(seconds).toDouble(&fine);
        if (!fine || !(options.seconds >= 1 && options.seconds <= 600))
            return QStringLiteral("--seconds is a number from 1 to 600");
    }
    return options;
}

}
