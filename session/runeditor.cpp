#include "session/runeditor.h"

#include <QCoreApplication>
#include <QPointer>

#include "platform/controls/noticebar.h"
#include "platform/desktop/desktop.h"
#include "platform/desktop/opendialog.h"

namespace {

QString words(const char* text) {
    return QCoreApplication::translate("RunEditor", text);
}

struct KeptEditor {
    QPointer<EditorDialog> form;
    std::function<void()> reopened;
};

void openAgain(const KeptEditor& kept);

bool saysToForget(const QString& title) {
    return MsgBox(words("Throw away what was typed and not saved?"), YesNoWarningBox, title) == Answer::Yes;
}

Notice noticeOf(const QString& what, const Notice::Action& action) {
    Notice notice;
    notice.text = words("Not saved: %1").arg(what);
    notice.kind = Notice::Kind::Failure;
    notice.actions = {action};
    return notice;
}

void keep(const KeptEditor& kept) {
    Notice notice = noticeOf(kept.form->Subject(), {words("Open again"), [kept] { openAgain(kept); }});
    // One question, whatever becomes of the notice.
    notice.mayClose = [kept] { return kept.form == nullptr || saysToForget(kept.form->windowTitle()); };
    notice.dismissed = [kept] { delete kept.form; };
    if (!ShowNotice(notice))
        delete kept.form;
}

void afterwards(const KeptEditor& kept, const std::function<void()>& closed) {
    if (kept.form == nullptr)
        return;  // With its window, and the view in it.
    const bool unsaved = kept.form->IsUnsaved();
    if (closed)
        closed();
    if (kept.form == nullptr)
        return;
    if (unsaved)
        keep(kept);
    else
        delete kept.form;
}

// Another form may have been opened since the click, by keys that were typed ahead; the notice then waits for its end.
void openAgain(const KeptEditor& kept) {
    if (kept.form == nullptr)
        return;
    if (OpenDialog::Any())
        return keep(kept);
    ShowModal(*kept.form);
    afterwards(kept, kept.reopened);
}

}  // namespace

void RunEditor(std::unique_ptr<EditorDialog> editor, const std::function<void()>& closed,
               const std::function<void()>& reopened) {
    const KeptEditor kept{editor.release(), reopened};
    ShowModal(*kept.form);
    afterwards(kept, closed);
}

void KeepTyped(const QString& what, const std::function<bool()>& tryAgain) {
    Notice notice = noticeOf(what, {words("Try again"), [what, tryAgain] {
                                        if (OpenDialog::Any() || !tryAgain())
                                            KeepTyped(what, tryAgain);
                                    }});
    notice.mayClose = [] { return saysToForget(QStringLiteral("Solvane Scheduler")); };
    ShowNotice(notice);
}
