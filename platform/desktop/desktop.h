#pragma once

#include <functional>
#include <QDateTime>
#include <QString>

class QDialog;

/// Message box style: which buttons, which picture.
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

/// Shows a message over the active window and waits. Closing a yes/no box by Escape answers No.
Answer MsgBox(const QString& text, BoxStyle style, const QString& title);
/// Runs a form modally over the active window and returns its QDialog result.
int ShowModal(QDialog& form);

/// Asks for the file to write, with `proposal` as its path; `filter` is "PDF files (*.pdf)". Whether a file that is
/// there may be replaced has been asked. Empty where the user gives up.
QString ChooseSaveFile(const QString& title, const QString& proposal, const QString& filter);

/// Local wall-clock time of this computer, kept as if in UTC: reckoning with it meets no change of clocks.
QDateTime Now();
QDate Today();

/// A random number from 0 up to, not including, 1.
double RandomNumber();

/// Plays a sound file when it is there; a missing file or device is silence.
void PlaySound(const QString& path);
/// Hands a file or an address (mailto:, https:) to the desktop. False when nothing there could take it.
bool OpenWithShell(const QString& target);
/// Starts a program and forgets it; on a failure shows "Error {number} {text}" and returns false.
bool StartProgram(const QString& path, const QString& arguments, const QString& folder);

/// The world outside, as the functions above reach it; a test puts its own functions here.
struct DesktopSeams {
    std::function<Answer(const QString& text, BoxStyle style, const QString& title)> msgBox;
    std::function<int(QDialog&)> showModal;
    std::function<QDateTime()> now;
    std::function<double()> random;
    std::function<void(const QString&)> playSound;
    std::function<bool(const QString&)> openWithShell;
    std::function<bool(const QString&, const QString&, const QString&)> startProgram;
    std::function<QString(const QString& title, const QString& proposal, const QString& filter)> chooseSaveFile;
};
DesktopSeams& Desktop();
/// What the program itself uses: real boxes, the real clock.
DesktopSeams RealDesktop();
