#include "platform/spelling/spellingdialog.h"

#include <algorithm>
#include <QBoxLayout>
#include <QGridLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QTextBlock>
#include <QTextEdit>

#include "platform/controls/formparts.h"
#include "platform/theme/theme.h"

namespace {

// The text around a word that is shown with it, on either side.
constexpr int Around = 150;

}  // namespace

SpellingDialog::SpellingDialog(QPlainTextEdit& field, SpellingWords words, QWidget* parent)
    : QDialog(parent), words_(std::move(words)), run_(field, words_.isMisspelt) {
    setWindowTitle(QStringLiteral("Spelling"));
    setObjectName(QStringLiteral("SpellingDialog"));
    makeParts();
    arrange();
    connectParts();
    goOn();
}

void SpellingDialog::makeParts() {
    txtnotfound = Named(new QTextEdit(this), "txtnotfound");
    txtnotfound->setReadOnly(true);
    txtnotfound->setTabChangesFocus(true);
    txtnotfound->setAccessibleName(QStringLiteral("Not in dictionary"));
    txtnotfound->setMinimumSize(fontMetrics().averageCharWidth() * 52, fontMetrics().lineSpacing() * 5);
    txtchange = Named(new QLineEdit(this), "txtchange");
    lstsuggestions = Named(new QListWidget(this), "lstsuggestions");
    lstsuggestions->setMinimumHeight(fontMetrics().lineSpacing() * 7);
    cmdignore = FormButton(QStringLiteral("&Ignore"), "cmdignore", this);
    cmdignoreall = FormButton(QStringLiteral("I&gnore All"), "cmdignoreall", this);
    cmdadd = FormButton(QStringLiteral("&Add to Dictionary"), "cmdadd", this);
    cmdchange = FormButton(QStringLiteral("&Change"), "cmdchange", this);
    cmdchangeall = FormButton(QStringLiteral("Change A&ll"), "cmdchangeall", this);
    cmdclose = FormButton(QStringLiteral("Cl&ose"), "cmdclose", this);
    cmdchange->setDefault(true);
}

void SpellingDialog::arrange() {
    auto* form = new QGridLayout(this);
    form->setContentsMargins(Space(16), Space(16), Space(16), Space(16));
    form->setHorizontalSpacing(Space(16));
    form->setVerticalSpacing(Space(4));
    form->addWidget(FieldLabel(QStringLiteral("Not in &dictionary:"), txtnotfound), 0, 0);
    form->addWidget(txtnotfound, 1, 0);
    form->addWidget(FieldLabel(QStringLiteral("Change &to:"), txtchange), 3, 0);
    form->addWidget(txtchange, 4, 0);
    form->addWidget(FieldLabel(QStringLiteral("Suggestio&ns:"), lstsuggestions), 6, 0);
    form->addWidget(lstsuggestions, 7, 0);
    for (const int gap : {2, 5})
        form->setRowMinimumHeight(gap, Space(4));
    form->setRowStretch(1, 1);
    form->setRowStretch(7, 1);
    form->setColumnStretch(0, 1);

    auto* skip = new QVBoxLayout;
    for (QPushButton* button : {cmdignore, cmdignoreall, cmdadd})
        skip->addWidget(button);
    skip->addStretch();
    form->addLayout(skip, 1, 1);
    auto* change = new QVBoxLayout;
    for (QPushButton* button : {cmdchange, cmdchangeall})
        change->addWidget(button);
    change->addStretch();
    change->addWidget(cmdclose);
    form->addLayout(change, 4, 1, 4, 1);
    for (QVBoxLayout* column : {skip, change})
        column->setSpacing(Space(8));
    resize(minimumSizeHint());
}

void SpellingDialog::connectParts() {
    connect(cmdignore, &QPushButton::clicked, this, &SpellingDialog::goOn);
    connect(cmdignoreall, &QPushButton::clicked, this, &SpellingDialog::ignoreAll);
    connect(cmdadd, &QPushButton::clicked, this, &SpellingDialog::add);
    connect(cmdchange, &QPushButton::clicked, this, &SpellingDialog::change);
    connect(cmdchangeall, &QPushButton::clicked, this, &SpellingDialog::changeAll);
    connect(cmdclose, &QPushButton::clicked, this, &QDialog::reject);
    connect(lstsuggestions, &QListWidget::currentTextChanged, txtchange, &QLineEdit::setText);
    connect(lstsuggestions, &QListWidget::itemDoubleClicked, this, &SpellingDialog::change);
    connect(txtchange, &QLineEdit::textChanged, this, [this](const QString& text) {
        cmdchange->setEnabled(!text.isEmpty());
        cmdchangeall->setEnabled(!text.isEmpty());
    });
}

void SpellingDialog::goOn() {
    if (run_.Next())
        showWord();
    else
        accept();
}

void SpellingDialog::showWord() {
    const QTextCursor& word = run_.Word();
    const QString paragraph = word.block().text();
    const int start = word.selectionStart() - word.block().position();
    const int end = word.selectionEnd() - word.block().position();
    const int from = std::max(0, start - Around);
    txtnotfound->setPlainText(paragraph.mid(from, end + Around - from));
    QTextCursor mark(txtnotfound->document());
    mark.setPosition(start - from);
    mark.setPosition(end - from, QTextCursor::KeepAnchor);
    QTextCharFormat format;
    format.setFontWeight(QFont::Bold);
    format.setForeground(ColoursOf(ModeOf(palette())).danger);
    mark.mergeCharFormat(format);
    mark.clearSelection();
    txtnotfound->setTextCursor(mark);
    txtnotfound->setAccessibleDescription(word.selectedText());
    showSuggestions(word.selectedText());
}

void SpellingDialog::showSuggestions(const QString& word) {
    const QStringList suggestions = words_.suggestions(word);
    lstsuggestions->clear();
    lstsuggestions->addItems(suggestions);
    if (suggestions.isEmpty())
        (new QListWidgetItem(QStringLiteral("(no suggestions)"), lstsuggestions))->setFlags(Qt::NoItemFlags);
    else
        lstsuggestions->setCurrentRow(0);
    txtchange->setText(suggestions.value(0, word));
    txtchange->selectAll();
    txtchange->setFocus();
}

void SpellingDialog::change() {
    run_.Change(txtchange->text());
    goOn();
}

void SpellingDialog::changeAll() {
    run_.ChangeAll(txtchange->text());
    goOn();
}

void SpellingDialog::ignoreAll() {
    words_.ignoreAll(run_.Word().selectedText());
    goOn();
}

void SpellingDialog::add() {
    if (words_.add(run_.Word().selectedText()))
        goOn();
}
