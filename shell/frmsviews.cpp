#include "shell/frmsviews.h"

#include <algorithm>
#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "platform/controls/ctlist.h"
#include "platform/controls/formarea.h"
#include "platform/controls/formparts.h"
#include "platform/controls/textfield.h"
#include "platform/database/readtogether.h"
#include "platform/desktop/desktop.h"
#include "platform/theme/icon.h"
#include "platform/theme/theme.h"
#include "session/errorbox.h"
#include "session/providernames.h"
#include "session/session.h"
#include "shell/viewtable.h"

namespace {

constexpr int TaskPaneSlot = 9;  ///< F9 shows and hides the task pane while no view is saved on it.
constexpr int KeyCharacters = 6;
constexpr int NameCharacters = 26;

const QString Unread = QStringLiteral("The saved views could not be read. ");

QString keyOf(int slot) {
    return QStringLiteral("F%1").arg(slot);
}

QString shownColumns(const QString& providers) {
    const auto count = providers.split(QLatin1Char('|'), Qt::SkipEmptyParts).size();
    if (count == 0)
        return frmsviews::tr("everybody");
    return count == 1 ? frmsviews::tr("one provider") : frmsviews::tr("%1 providers").arg(count);
}

}  // namespace

QString ContentsInWords(const SavedView& saved, const std::function<QString(const QString&)>& nameOf) {
    const ViewEntry* entry = FindView(saved.Shows());
    if (entry == nullptr)
        return frmsviews::tr("A view of another version of the program");
    const QString view = QString::fromLatin1(entry->item);
    const QString provider = saved.contents.Value(savedname::Provider);
    switch (saved.Shows()) {
        case View::AllProviders:
        case View::Companion:
            return QStringLiteral("%1, %2").arg(view, shownColumns(saved.contents.Value(savedname::Providers)));
        case View::Rooms:
            return view;
        default:
            return provider.isEmpty() ? view : QStringLiteral("%1, %2").arg(view, nameOf(provider));
    }
}

frmsviews::frmsviews(SavedView shown, QWidget* parent) : QDialog(parent), shown_(std::move(shown)) {
    setObjectName(QStringLiteral("frmsviews"));
    setWindowTitle(tr("Saved Views"));
    buildForm();
    layOut();
    fill();
    chooseFirstFree();
    connect(List1, &ctList::SelectionChanged, this, &frmsviews::followKey);
    connect(txtname, &TextField::textEdited, this, [this] { typed_ = true; });
    connect(cmdsave, &QPushButton::clicked, this, &frmsviews::save);
    connect(cmdrename, &QPushButton::clicked, this, &frmsviews::rename);
    connect(cmddelete, &QPushButton::clicked, this, &frmsviews::remove);
    connect(cmdclose, &QPushButton::clicked, this, &QDialog::reject);
}

QSize frmsviews::sizeHint() const {
    return {fontMetrics().averageCharWidth() * 84, fontMetrics().height() * 27};
}

void frmsviews::buildForm() {
    lblshown = Named(new QLabel(this), "lblshown");
    lblshown->setFont(HeadingFont());
    lblshown->setTextFormat(Qt::PlainText);
    lblshown->setWordWrap(true);
    txtname = Named(new TextField(this), "txtname");
    txtname->SetMost(SavedView::MostCharacters);
    txtname->installEventFilter(this);
    List1 = Named(new ctList(this), "List1");
    List1->setAccessibleName(tr("Keys"));
    List1->SetColumns({{tr("Key"), ListColumn::Kind::Text, KeyCharacters},
                       {tr("Name"), ListColumn::Kind::Text, NameCharacters},
                       {tr("Shows")}});
    lblkey = Named(new QLabel(this), "lblkey");
    lblkey->setWordWrap(true);
    cmdsave = FormButton(tr("&Save This View"), "cmdsave", this);
    cmdsave->setIcon(Icon("save"));
    cmdsave->setDefault(true);
    cmdrename = FormButton(tr("&Rename"), "cmdrename", this);
    cmddelete = FormButton(tr("&Delete"), "cmddelete", this);
    cmdclose = FormButton(tr("&Close"), "cmdclose", this);
}

void frmsviews::layOut() {
    auto* name = new QHBoxLayout;
    name->setSpacing(Space(8));
    name->addWidget(FieldLabel(tr("&Name:"), txtname));
    name->addWidget(txtname, 1);
    auto* keys = FieldLabel(tr("&Key that shows it:"), List1);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(Space(16), Space(16), Space(16), Space(16));
    column->setSpacing(Space(12));
    column->addWidget(lblshown);
    column->addLayout(name);
    column->addWidget(keys);
    column->addWidget(List1, 1);
    column->addWidget(lblkey);
    column->addLayout(ButtonRow({cmdrename, cmddelete, cmdsave, cmdclose}));
    setTabOrder(txtname, List1);
    FitToScreen(*this);
    txtname->setFocus();
}

void frmsviews::fill() {
    const int slot = chosenSlot();
    std::function<QString(const QString&)> nameOf = [](const QString& id) { return id; };
    try {
        const db::ReadTogether together(Session().Connection, {SavedViewsStatement(), ProviderNames::Statement()});
        saved_ = ReadSavedViews();
        nameOf = [names = ProviderNames()](const QString& id) { return names.Of(id); };
    } catch (const db::DatabaseError& error) {
        TellError(Unread, error);
    }
    lblshown->setText(tr("On the screen: %1").arg(ContentsInWords(shown_, nameOf)));
    List1->Clear();
    for (int key = SavedView::FirstSlot; key <= SavedView::LastSlot; ++key) {
        const std::optional<SavedView> saved = savedAt(key);
        List1->AddRow(saved ? QStringList{keyOf(key), saved->title, ContentsInWords(*saved, nameOf)}
                            : QStringList{keyOf(key), QString(), tr("(free)")},
                      key);
    }
    List1->SelectRow(List1->FindItemData(slot));
    followKey();
}

void frmsviews::chooseFirstFree() {
    int free = SavedView::FirstSlot;
    while (free < SavedView::LastSlot && (savedAt(free) || free == TaskPaneSlot))
        ++free;
    List1->SelectRow(List1->FindItemData(free));
    followKey();
}

int frmsviews::chosenSlot() const {
    return List1->ItemData(List1->SelectedRow()).toInt();
}

std::optional<SavedView> frmsviews::savedAt(int slot) const {
    const auto found = std::ranges::find(saved_, slot, &SavedView::slot);
    return found == saved_.end() ? std::nullopt : std::optional(*found);
}

void frmsviews::followKey() {
    const int slot = chosenSlot();
    const std::optional<SavedView> saved = savedAt(slot);
    if (!typed_) {
        txtname->setText(saved && !saved->title.isEmpty() ? saved->title : shown_.title);
        txtname->selectAll();
    }
    cmdsave->setEnabled(slot > 0);
    cmdrename->setEnabled(saved.has_value());
    cmddelete->setEnabled(saved.has_value());
    const bool hasPane = slot == TaskPaneSlot && !saved;
    lblkey->setText(hasPane ? tr("F9 then no longer shows and hides the task pane; Ctrl+Shift+P still does.")
                            : QString());
}

QString frmsviews::enteredTitle() const {
    const QString title = txtname->Stored().trimmed();
    return title.isEmpty() ? shown_.title : title;
}

/// Whether the chosen key still holds what the list says. If not, the list shows it now, and the user is told.
bool frmsviews::isStillAsShown() {
    const int slot = chosenSlot();
    const std::optional<SavedView> before = savedAt(slot);
    fill();
    if (savedAt(slot) == before)
        return true;
    MsgBox(tr("What is saved on %1 was changed at another desk meanwhile. The list shows it now.").arg(keyOf(slot)),
           InformationBox, windowTitle());
    return false;
}

void frmsviews::write(const QString& told, const std::function<void()>& step) {
    try {
        step();
    } catch (const db::DatabaseError& error) {
        TellError(told, error);
    }
}

void frmsviews::save() {
    const int slot = chosenSlot();
    const QString title = enteredTitle();
    if (slot == 0 || !isStillAsShown())
        return;
    SavedView wanted = shown_;
    wanted.slot = slot;
    wanted.title = title;
    if (const std::optional<SavedView> before = savedAt(slot)) {
        const QString question =
            tr("%1 shows \"%2\" now. Replace it?")
                .arg(keyOf(slot), before->title.isEmpty() ? tr("a view without a name") : before->title);
        if (MsgBox(question, YesNoBox, windowTitle()) != Answer::Yes)
            return;
        if (before->viewNumber == wanted.viewNumber)
            wanted.contents.KeepUnknown(before->contents);
    }
    write(tr("The view was not saved. "), [&] {
        StoreSavedView(wanted);
        accept();
    });
}

void frmsviews::rename() {
    const int slot = chosenSlot();
    const QString title = txtname->Stored().trimmed();
    if (!savedAt(slot) || !isStillAsShown())
        return;
    if (title.isEmpty()) {
        MsgBox(tr("Type a name first."), InformationBox, windowTitle());
        txtname->setFocus();
        return;
    }
    write(tr("The view was not renamed. "), [&] {
        RenameSavedView(slot, title);
        typed_ = false;
        fill();
    });
}

void frmsviews::remove() {
    const int slot = chosenSlot();
    const std::optional<SavedView> saved = savedAt(slot);
    if (!saved || !isStillAsShown())
        return;
    const QString title = saved->title.isEmpty() ? keyOf(slot) : saved->title;
    if (MsgBox(tr("Delete the saved view \"%1\"?").arg(title), YesNoBox, windowTitle()) != Answer::Yes)
        return;
    write(tr("The view was not deleted. "), [&] {
        DeleteSavedView(slot);
        typed_ = false;
        fill();
    });
}

// Up and Down choose a key while the cursor stays in the name.
bool frmsviews::eventFilter(QObject* watched, QEvent* event) {
    if (watched == txtname && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Up || key == Qt::Key_Down)
            return QApplication::sendEvent(List1, event);
    }
    return QDialog::eventFilter(watched, event);
}

void frmsviews::keyPressEvent(QKeyEvent* event) {
    const int slot = event->key() - Qt::Key_F1 + 1;
    if (event->modifiers() == Qt::NoModifier && slot >= SavedView::FirstSlot && slot <= SavedView::LastSlot) {
        List1->SelectRow(List1->FindItemData(slot));
        return;
    }
    QDialog::keyPressEvent(event);
}
