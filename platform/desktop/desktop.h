#pragma once

#include <functional>
#include <QDateTime>
#include <QString>

class QDialog;
class QObject;

/// The buttons and the picture of a message box.
struct BoxStyle {
    enum class Buttons { Ok, YesNo };
    enum class Picture { None, Information, Exclamation, Question, Critical };
    Buttons buttons = Buttons::Ok;
    Picture picture = Picture::None;
    friend bool operator==(const BoxStyle&, const BoxStyle&) = default;
};

inline constexpr BoxStyle PlainBox{};
inline constexpr BoxStyle InformationBox{BoxStyle::Buttons::Ok, BoxStyle::Picture::Information};
inline constexpr BoxStyle ExclamationBox{BoxStyle::Buttons::Ok, BoxStyle::Picture::Exclamation};
inline constexpr BoxStyle ErrorBox{BoxStyle::Buttons::Ok, BoxStyle::Picture::Critical};
inline constexpr BoxStyle YesNoBox{BoxStyle::Buttons::YesNo, BoxStyle::Picture::Question};
inline constexpr BoxStyle YesNoWarningBox{BoxStyle::Buttons::YesNo, BoxStyle::Picture::Exclamation};

enum class Answer { Ok, Yes, No };

/// Shows a message over the active window and waits for the answer. Closing a yes/no box by Escape answers No.
Answer MsgBox(const QString& text, BoxStyle style, const QString& title);
/// Runs a form modally over the active window and returns its QDialog result.
int ShowModal(QDialog& form);

/// Who asks before an existing file is replaced.
enum class AsksToReplace { FileDialog, Caller };

/// Asks for the file to write. `proposal` is the proposed path, and `filter` is "PDF files (*.pdf)". Returns an empty
/// text when the user gives up.
QString ChooseSaveFile(const QString& title, const QString& proposal, const QString& filter,
                       AsksToReplace asks = AsksToReplace::FileDialog);

/// Returns this computer's local wall-clock time, marked as UTC, so that arithmetic with it meets no change of clocks.
QDateTime Now();
QDate Today();

/// Calls `step` when so many milliseconds have passed, unless `context` is destroyed before. The windows live
/// meanwhile.
void After(int milliseconds, QObject* context, std::function<void()> step);

/// Returns a random number from 0 up to but not including 1.
double RandomNumber();

/// Plays a sound file. A missing file or device is silent.
void PlaySound(const QString& path);
/// Hands a file or an address (mailto:, https:) to the desktop. Returns false when the desktop cannot open it.
bool OpenWithShell(const QString& target);
/// Starts a program and forgets it. The program gets `arguments` in one piece, without a shell, and begins in `folder`
/// when that is not empty. When it is missing or cannot be executed, the user is told "Error {number} {text}" in the
/// system's own number and words, and the answer is false.
bool StartProgram(const QString& path, const QString& arguments, const QString& folder);

/// The functions above call these functions to reach the world outside. A test replaces them by its own.
struct DesktopSeams {
    std::function<Answer(const QString& text, BoxStyle style, const QString& title)> msgBox;
    std::function<int(QDialog&)> showModal;
    std::function<QDateTime()> now;
    std::function<void(int milliseconds, QObject* context, std::function<void()> step)> after;
    std::function<double()> random;
    std::function<void(const QString&)> playSound;
    std::function<bool(const QString&)> openWithShell;
    std::function<bool(const QString&, const QString&, const QString&)> startProgram;
    std::function<QString(const QString& title, const QString& proposal, const QString& filter, AsksToReplace asks)>
        chooseSaveFile;
};
DesktopSeams& Desktop();
/// Returns the functions that the program itself uses: real boxes, the real clock.
DesktopSeams RealDesktop();
