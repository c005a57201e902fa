#include "app/options.h"

#include "helptext.h"

#include <QDir>
#include <QRegularExpression>

#include "shell/viewtable.h"

namespace {

/// One argument that takes a value; the answer is what is wrong with the value, empty when nothing is.
struct ValueOption {
    const char* name;
    QString (*take)(AppOptions& options, const QString& value);
};

QString takeData(AppOptions& options, const QString& value) {
    options.dataFolder = value;
    return QDir(value).exists() ? QString() : QStringLiteral("there is no folder %1").arg(value);
}

QString takeScreenshot(AppOptions& options, const QString& value) {
    options.screenshotFile = value;
    return {};
}

QString takeView(AppOptions& options, const QString& value) {
    const ViewEntry* entry = FindViewByOption(value);
    if (entry == nullptr)
        return QStringLiteral("there is no view \"%1\"").arg(value);
    options.view = entry->view;
    return {};
}

QString takeDate(AppOptions& options, const QString& value) {
    options.date = QDate::fromString(value, QStringLiteral("yyyy-MM-dd"));
    return options.date.isValid() ? QString() : QStringLiteral("\"%1\" is no date of the form yyyy-mm-dd").arg(value);
}

QString takeSize(AppOptions& options, const QString& value) {
    static const QRegularExpression form(QStringLiteral("^(\\d{3,4})x(\\d{3,4})$"));
    const QRegularExpressionMatch match = form.match(value);
    if (!match.hasMatch())
        return QStringLiteral("\"%1\" is no size of the form 1280x800, from 100x100 to 9999x9999").arg(value);
    options.size = {match.captured(1).toInt(), match.captured(2).toInt()};
    return {};
}

const ValueOption ValueOptions[] = {{"--data", takeData},
                                    {"--screenshot", takeScreenshot},
                                    {"--view", takeView},
                                    {"--date", takeDate},
                                    {"--size", takeSize}};

bool takeFlag(AppOptions& options, const QString& argument) {
    if (argument == QLatin1String("--help") || argument == QLatin1String("-h"))
        options.help = true;
    else if (argument == QLatin1String("--version"))
        options.version = true;
    else if (argument == QLatin1String("--demo"))
        options.demo = true;
    else if (argument == QLatin1String("--dark"))
        options.mode = ThemeMode::Dark;
    else if (argument == QLatin1String("--light"))
        options.mode = ThemeMode::Light;
    else
        return false;
    return true;
}

const ValueOption* findValueOption(const QString& name) {
    for (const ValueOption& option : ValueOptions)
        if (name == QLatin1String(option.name))
            return &option;
    return nullptr;
}

/// The notes product hands its user over as "1|JSMITH"; the shell may have made two arguments of a name with a blank.
void takeUser(AppOptions& options, const QString& argument) {
    if (!options.commandLine.isEmpty())
        options.commandLine += QLatin1Char(' ');
    options.commandLine += argument;
}

}  // namespace

ParsedOptions ParseOptions(const QStringList& arguments) {
    ParsedOptions parsed;
    for (qsizetype i = 0; i < arguments.size() && parsed.error.isEmpty(); ++i) {
        const QString& argument = arguments[i];
        if (!argument.startsWith(QLatin1Char('-'))) {
            takeUser(parsed.options, argument);
            continue;
        }
        if (takeFlag(parsed.options, argument))
            continue;
        const qsizetype equals = argument.indexOf(QLatin1Char('='));
        const ValueOption* option = findValueOption(argument.left(equals));
        if (option == nullptr) {
            parsed.error = QStringLiteral("unknown option %1").arg(argument);
        } else if (equals < 0 && i + 1 >= arguments.size()) {
            parsed.error = QStringLiteral("%1 needs a value").arg(argument);
        } else {
            const QString value = equals < 0 ? arguments[++i] : argument.mid(equals + 1);
            parsed.error = value.isEmpty() ? QStringLiteral("%1 needs a value").arg(QLatin1String(option->name))
                                           : option->take(parsed.options, value);
        }
    }
    const AppOptions& options = parsed.options;
    if (parsed.error.isEmpty() && !options.commandLine.isEmpty() && !options.commandLine.contains(QLatin1Char('|')))
        parsed.error = QStringLiteral("\"%1\" is not of the form type|user").arg(options.commandLine);
    if (parsed.error.isEmpty() && !options.screenshotFile.isEmpty() && options.commandLine.isEmpty() && !options.help &&
        !options.version)
        parsed.error =
            QStringLiteral("--screenshot cannot log on: name the user as type|user, for example \"2|ADMIN\"");
    if (parsed.error.isEmpty() && options.demo && !options.dataFolder.isEmpty())
        parsed.error = QStringLiteral("--demo has a folder of its own; leave --data away");
    return parsed;
}

QString UsageText() {
    return QString::fromUtf8(HelpText);
}
