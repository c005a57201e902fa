#include <algorithm>
#include <QComboBox>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QPainter>
#include <QPushButton>
#include <QScrollArea>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>

#include "followup/boardcards.h"
#include "followup/boardlist.h"
#include "followup/frmboard.h"
#include "platform/controls/formparts.h"
#include "platform/controls/textfield.h"
#include "platform/theme/icon.h"
#include "platform/theme/theme.h"
#include "session/session.h"

namespace {

struct CommandLook {
    const char* name;
    const char* text;
    const char* icon;
    const char* key;
};

/// In the order of BoardCommand.
constexpr std::array<CommandLook, 8> looks{{{"mnuCheckIn", "Check In...", "checkedin", "Ctrl+I"},
                                            {"mnuKept", "Kept", "check", "Ctrl+K"},
                                            {"mnuMissed", "Missed", "missed", "Ctrl+M"},
                                            {"mnuPatientCancel", "Patient Cancel", "user", "Ctrl+Shift+P"},
                                            {"mnuTherapistCancel", "Therapist Cancel", "close", "Ctrl+Shift+T"},
                                            {"mnuEdit", "Edit...", "edit", "Ctrl+E"},
                                            {"mnuGoTo", "Go to", "day", "Ctrl+G"},
                                            {"mnuNote", "Session Note...", "note", "Ctrl+Shift+S"}}};

struct PlaceLook {
    const char* list;
    const char* icon;
};

/// In the order of BoardPlace.
constexpr std::array<PlaceLook, BoardPlaces> placeLooks{{{"lstdue", "clock"},
                                                         {"lstlate", "warning"},
                                                         {"lstwaiting", "checkedin"},
                                                         {"lstinsession", "session"},
                                                         {"lstgone", "check"},
                                                         {"lstnotcoming", "missed"},
                                                         {"lstnotes", "note"},
                                                         {"lstseries", "repeat"}}};

/// The columns of a wide board: five places of the day above, the rest below.
constexpr int MostColumns = 5;

/// A frame on the ground of lists, with the line of the borders.
QFrame* card(QWidget* parent) {
    auto* frame = new QFrame(parent);
    frame->setFrameShape(QFrame::StyledPanel);
    frame->setBackgroundRole(QPalette::Base);
    frame->setAutoFillBackground(true);
    return frame;
}

/// A picture that follows the palette. It is no button, which a screen reader would offer to press.
class Picture : public QWidget {
  public:
    Picture(const char* icon, QWidget* parent) : QWidget(parent), icon_(Icon(icon)) {
        setFixedSize(Space(16), Space(16));
    }

  protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        icon_.paint(&painter, rect());
    }

  private:
    QIcon icon_;
};

}  // namespace

void frmboard::buildForm() {
    buildCommands();
    auto* places = new QWidget(this);
    grid_ = new QGridLayout(places);
    grid_->setContentsMargins(Space(12), Space(4), Space(12), Space(4));
    grid_->setSpacing(Space(8));
    auto* area = new QScrollArea(this);
    area->setObjectName(QStringLiteral("area"));
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setFocusPolicy(Qt::NoFocus);
    area->setWidget(places);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(buildHead());
    column->addWidget(toolbar);
    column->addWidget(buildProblem());
    column->addWidget(area, 1);
    lblstatus = Named(new QLabel(this), "lblstatus");
    lblstatus->setForegroundRole(QPalette::PlaceholderText);
    lblstatus->setContentsMargins(Space(12), 0, Space(12), Space(8));
    column->addWidget(lblstatus);
    for (int place = 0; place < BoardPlaces; ++place)
        buildPlace(static_cast<BoardPlace>(place));
    arrange();
    // What is arranged anew by the width must not hold the width.
    column->setSizeConstraint(QLayout::SetNoConstraint);
    setMinimumSize(fontMetrics().averageCharWidth() * 64, fontMetrics().height() * 20);
    setTabOrder(cboprovider, txtfind);
    for (const Place& place : places_)
        setTabOrder(&place == &places_.front() ? static_cast<QWidget*>(txtfind) : (&place - 1)->list, place.list);
    places_.front().list->setFocus();
}

QWidget* frmboard::buildHead() {
    auto* head = new QWidget(this);
    lblday = Named(new QLabel(head), "lblday");
    lblday->setFont(HeadingFont(2));
    lblclock = Named(new QLabel(head), "lblclock");
    lblclock->setFont(HeadingFont(2));
    lblclock->setForegroundRole(QPalette::PlaceholderText);
    cboprovider = Named(new QComboBox(head), "cboprovider");
    cboprovider->addItem(tr("All providers"), QString());
    cboprovider->setMinimumContentsLength(16);
    cboprovider->setSizeAdjustPolicy(QComboBox::AdjustToContentsOnFirstShow);
    QLabel* provider = FieldLabel(tr("&Provider:"), cboprovider);
    txtfind = Named(new TextField(head), "txtfind");
    txtfind->setClearButtonEnabled(true);
    txtfind->setPlaceholderText(tr("Name or provider"));
    txtfind->installEventFilter(this);
    QLabel* find = FieldLabel(tr("&Find:"), txtfind);
    filter_ = new QWidget(head);
    auto* row = new QHBoxLayout(filter_);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(Space(8));
    for (QWidget* part : {static_cast<QWidget*>(provider), static_cast<QWidget*>(cboprovider),
                          static_cast<QWidget*>(find), static_cast<QWidget*>(txtfind)})
        row->addWidget(part);
    head_ = new QGridLayout(head);
    head_->setContentsMargins(Space(12), Space(12), Space(12), Space(8));
    head_->setSpacing(Space(8));
    head_->addWidget(lblday, 0, 0);
    head_->addWidget(lblclock, 0, 1);
    head_->setColumnStretch(2, 1);
    txtfind->setMinimumWidth(fontMetrics().averageCharWidth() * 22);
    // Without the right to all schedules the board is the user's own.
    provider->setVisible(Session().AllProviders);
    cboprovider->setVisible(Session().AllProviders);
    connect(cboprovider, &QComboBox::currentIndexChanged, this, &frmboard::refresh);
    connect(txtfind, &QLineEdit::textChanged, this, &frmboard::refresh);
    return head;
}

QWidget* frmboard::buildProblem() {
    pnlproblem = Named(new QWidget(this), "pnlproblem");
    QWidget* picture = new Picture("warning", pnlproblem);
    lblproblem = Named(new QLabel(pnlproblem), "lblproblem");
    lblproblem->setTextFormat(Qt::PlainText);
    lblproblem->setWordWrap(true);
    lblproblem->setAccessibleName(tr("Problem"));
    cmdtryagain = FormButton(tr("Try &Again"), "cmdtryagain", pnlproblem);
    connect(cmdtryagain, &QPushButton::clicked, this, &frmboard::Load);
    auto* row = new QHBoxLayout(pnlproblem);
    row->setContentsMargins(Space(12), Space(4), Space(12), Space(4));
    row->setSpacing(Space(8));
    row->addWidget(picture);
    row->addWidget(lblproblem, 1);
    row->addWidget(cmdtryagain);
    pnlproblem->hide();
    return pnlproblem;
}

void frmboard::buildCommands() {
    toolbar = Named(new QToolBar(tr("Commands"), this), "toolbar");
    toolbar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    toolbar->setIconSize({Space(16), Space(16)});
    toolbar->setContentsMargins(Space(8), 0, Space(8), 0);
    for (std::size_t i = 0; i < looks.size(); ++i) {
        const CommandLook& look = looks[i];
        const auto command = static_cast<BoardCommand>(i);
        auto* action = Named(new QAction(Icon(look.icon), tr(look.text), this), look.name);
        action->setShortcut(QKeySequence(QString::fromLatin1(look.key)));
        // A key that is held down must neither set a status twice nor start the notes program again and again.
        action->setAutoRepeat(false);
        connect(action, &QAction::triggered, this, [this, command] { runOnSelected(command); });
        commands_[i] = action;
        if (command == BoardCommand::Edit)
            toolbar->addSeparator();
        toolbar->addAction(action);
        toolbar->widgetForAction(action)->setObjectName(QStringLiteral("cmd") + QLatin1String(look.name + 3));
    }
    toolbar->addSeparator();
    auto* refreshAction = Named(new QAction(Icon("refresh"), tr("Refresh"), this), "mnuRefresh");
    refreshAction->setShortcut(QKeySequence(Qt::Key_F5));
    refreshAction->setToolTip(tr("Read the board anew (F5)"));
    connect(refreshAction, &QAction::triggered, this, &frmboard::Load);
    toolbar->addAction(refreshAction);
    toolbar->widgetForAction(refreshAction)->setObjectName(QStringLiteral("cmdRefresh"));
    const auto keyAlone = [this](const char* name, const char* key, auto&& run) {
        auto* action = Named(new QAction(this), name);
        action->setShortcut(QKeySequence(QString::fromLatin1(key)));
        connect(action, &QAction::triggered, this, run);
        addAction(action);
    };
    keyAlone("mnuFind", "Ctrl+F", [this] { txtfind->setFocus(Qt::ShortcutFocusReason); });
    keyAlone("mnuClose", "Ctrl+W", [this] { close(); });
}

std::vector<CardButton> frmboard::cardButtons() const {
    std::vector<CardButton> buttons;
    for (std::size_t i = 0; i < looks.size(); ++i)
        buttons.push_back({static_cast<int>(i), QStringLiteral("card") + QLatin1String(looks[i].name + 3),
                           QStringLiteral("%1 (%2)").arg(tr(looks[i].text), QLatin1String(looks[i].key)),
                           Icon(looks[i].icon)});
    return buttons;
}

void frmboard::buildPlace(BoardPlace place) {
    Place& made = at(place);
    const PlaceLook& look = placeLooks[static_cast<std::size_t>(place)];
    made.panel = card(grid_->parentWidget());
    QWidget* picture = new Picture(look.icon, made.panel);
    made.title = new QLabel(made.panel);
    made.title->setFont(HeadingFont());
    made.title->setToolTip(MeaningOf(place));
    made.title->setText(TitleOf(place));
    made.title->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);  // The places are of one width.
    made.number = new QLabel(made.panel);
    made.number->setFont(HeadingFont());
    made.number->setForegroundRole(QPalette::PlaceholderText);
    made.list = Named(new BoardList(made.panel), look.list);
    made.list->setAccessibleDescription(MeaningOf(place));
    auto* head = new QHBoxLayout;
    head->setContentsMargins(Space(8), Space(8), Space(8), Space(4));
    head->setSpacing(Space(8));
    head->addWidget(picture);
    head->addWidget(made.title, 1);
    head->addWidget(made.number);
    auto* column = new QVBoxLayout(made.panel);
    column->setContentsMargins(1, 1, 1, Space(4));
    column->setSpacing(0);
    column->addLayout(head);
    column->addWidget(made.list, 1);
    connectPlace(place);
}

void frmboard::connectPlace(BoardPlace place) {
    BoardList* list = at(place).list;
    list->SetButtons(cardButtons(), [this, place](int command, int key) {
        const BoardVisit* visit = visitOf(place, key);
        return visit != nullptr && whyNot(static_cast<BoardCommand>(command), place, *visit).isEmpty();
    });
    connect(list, &BoardList::SelectionChanged, this, [this, place, list] {
        if (list->hasFocus())
            active_ = place;
        suitCommands();
    });
    connect(list, &BoardList::Opened, this,
            [this, place, list] { Run(BoardCommand::Edit, place, list->SelectedKey()); });
    connect(list, &BoardList::Pressed, this,
            [this, place](int command, int key) { Run(static_cast<BoardCommand>(command), place, key); });
    connect(list, &BoardList::StepAside, this, [this, place](int direction) { stepAside(place, direction); });
    connect(list, &BoardList::Typed, this, &frmboard::findTyped);
    connect(list, &BoardList::PopupRequested, this, [this](const QPoint& where) {
        auto* popup = Named(new QMenu(this), "popup");
        popup->setAttribute(Qt::WA_DeleteOnClose);
        popup->setToolTipsVisible(true);
        for (QAction* action : commands_)
            popup->addAction(action);
        popup->popup(where);
    });
}

// As many columns as fit, and the filter below the day where it does not fit beside it. On a wide board the five places
// of the visits stand side by side.
void frmboard::arrange() {
    if (grid_ == nullptr || places_.back().panel == nullptr)
        return;
    const int least = fontMetrics().averageCharWidth() * 32;
    const int columns = std::clamp(width() / least, 1, MostColumns);
    if (columns == columns_)
        return;
    columns_ = columns;
    const bool isBeside = columns == MostColumns;
    head_->addWidget(filter_, isBeside ? 0 : 1, isBeside ? 3 : 0, 1, isBeside ? 1 : 4, Qt::AlignRight);
    for (const Place& place : places_)
        grid_->removeWidget(place.panel);
    const int rows = (BoardPlaces + columns - 1) / columns;
    for (int i = 0; i < BoardPlaces; ++i) {
        const bool isWide = columns == MostColumns && i >= MostColumns + 1;
        const int column = isWide ? 1 + (i - MostColumns - 1) * 2 : i % columns;
        grid_->addWidget(places_[static_cast<std::size_t>(i)].panel, i / columns, column, 1, isWide ? 2 : 1);
    }
    for (int column = 0; column < MostColumns; ++column)
        grid_->setColumnStretch(column, column < columns ? 1 : 0);
    for (int row = 0; row < BoardPlaces; ++row)
        grid_->setRowStretch(row, row >= rows ? 0 : columns == MostColumns && row == 0 ? 3 : 2);
}
