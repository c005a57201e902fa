#pragma once

#include <optional>
#include <QDate>
#include <QSize>
#include <QString>
#include <QStringList>

#include "platform/theme/colours.h"
#include "session/view.h"

/// The options of the command line.
struct AppOptions {
    QString commandLine;  ///< "{type}|{user id}" from the notes product. Empty: the user has to log on.
    QString dataFolder;
    bool demo = false;  ///< Opens the user's demo practice, which is made when it is not there.
    QString screenshotFile;
    View view = View::None;  ///< The view to open. With None, start-up chooses it.
    QDate date;              ///< The date to open. An invalid date means today.
    QSize size;              ///< The window's size. Empty: the window opens at its remembered place.
    std::optional<ThemeMode> mode;
    bool help = false;
    bool version = false;
};

struct ParsedOptions {
    AppOptions options;
    QString error;  ///< One line about the argument that is wrong. It is empty when none is.
};

/// Reads the arguments that follow the program's name. It needs no application object.
[[nodiscard]] ParsedOptions ParseOptions(const QStringList& arguments);
[[nodiscard]] QString UsageText();

/// The size of a screenshot when the command line gives none.
inline constexpr QSize PictureSize{1280, 800};
