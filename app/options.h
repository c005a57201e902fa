#pragma once

#include <optional>
#include <QDate>
#include <QSize>
#include <QString>
#include <QStringList>

#include "platform/theme/colours.h"
#include "session/view.h"

/// What the program was asked on its command line.
struct AppOptions {
    QString commandLine;  ///< "{type}|{user id}" as the notes product hands it over; empty asks for a logon.
    QString dataFolder;
    QString screenshotFile;
    View view = View::None;  ///< The view to open; None leaves it to the start-up.
    QDate date;              ///< Invalid: today.
    QSize size;              ///< Empty: the remembered place.
    std::optional<ThemeMode> mode;
    bool help = false;
    bool version = false;
};

struct ParsedOptions {
    AppOptions options;
    QString error;  ///< One line on what cannot be obeyed; empty when all is well.
};

/// Reads the arguments after the program's name. Needs no application object.
[[nodiscard]] ParsedOptions ParseOptions(const QStringList& arguments);
[[nodiscard]] QString UsageText();

/// The size of a picture when none is asked for.
inline constexpr QSize PictureSize{1280, 800};
