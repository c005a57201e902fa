#include "platform/controls/listfilter.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <utility>

#include "platform/controls/ctlist.h"
#include "platform/controls/formparts.h"
#include "platform/controls/textfield.h"

namespace {

QString number(int count) {
    return QLocale(QLocale::English, QLocale::UnitedStates).toString(count);
}

}  // namespace

QString CountText(int shown, int all, const CountWords& words) {
    if (shown < all)
        return ListFilter::tr("%1 of %2 %3")
            .arg(shown == 0 ? ListFilter::tr("None") : number(shown), number(all), words.many);
    if (all == 0)
        return ListFilter::tr("No %1").arg(words.many);
    return QStringLiteral("%1 %2").arg(number(all), all == 1 ? words.one : words.many);
}

QString CountText(const ctList& list, const CountWords& words) {
    return CountText(list.ShownRowCount(), list.RowCount(), words);
}

ListFilter::ListFilter(ctList& list, CountWords words, QWidget* parent)
    : QWidget(parent), list_(list), words_(std::move(words)) {
    txtfilter = Named(new TextField(this), "txtfilter");
    txtfilter->setClearButtonEnabled(true);
    txtfilter->setPlaceholderText(tr("Part of a name"));
    lblcount = Named(new QLabel(this), "lblcount");
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(FieldLabel(tr("S&how:"), txtfilter));
    row->addWidget(txtfilter, 1);
    row->addWidget(lblcount);
    connect(txtfilter, &QLineEdit::textChanged, this, [this](const QString& text) {
        list_.SetFilter(text.trimmed());
        Refresh();
    });
    Refresh();
}

void ListFilter::Refresh() {
    lblcount->setText(CountText(list_, words_));
    setVisible(list_.RowCount() > PageRows || !txtfilter->text().isEmpty());
}

void ListFilter::ShowAll() {
    txtfilter->clear();
}
