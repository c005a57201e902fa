#include "shell/titlebar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QStyleOptionToolButton>
#include <QStylePainter>

#include "platform/controls/formparts.h"
#include "platform/text/plaintext.h"
#include "platform/theme/theme.h"

/// Cuts its text where the window is narrow, so that a long name does not keep the window from being made smaller.
class TitleBar::WhoseButton : public QToolButton {
  public:
    explicit WhoseButton(QWidget* parent) : QToolButton(parent) {
        setAutoRaise(true);
        setToolButtonStyle(Qt::ToolButtonTextOnly);
        setFocusPolicy(Qt::NoFocus);
        setAttribute(Qt::WA_TransparentForMouseEvents);
    }

    void SetName(const QString& name) {
        name_ = OneLine(name);
        show();
        describe();
    }
    void LetChoose() {
        chooses_ = true;
        setFocusPolicy(Qt::TabFocus);
        setAttribute(Qt::WA_TransparentForMouseEvents, false);
        setCursor(Qt::PointingHandCursor);
        describe();
    }

    [[nodiscard]] QSize minimumSizeHint() const override {
        return {fontMetrics().averageCharWidth() * FewestCharacters, sizeHint().height()};
    }

  protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QStyleOptionToolButton option;
        initStyleOption(&option);
        // A name that has its room is drawn as it is: measured in whole pixels, it would seem a part of one too wide.
        const int room = width() - (sizeHint().width() - fontMetrics().horizontalAdvance(name_));
        if (width() < sizeHint().width())
            option.text = CaptionText(fontMetrics().elidedText(name_, Qt::ElideRight, room)) + mark();
        QStylePainter(this).drawComplexControl(QStyle::CC_ToolButton, option);
    }
    void resizeEvent(QResizeEvent* event) override {
        QToolButton::resizeEvent(event);
        describe();
    }

  private:
    static constexpr int FewestCharacters = 8;

    [[nodiscard]] QString mark() const { return chooses_ ? QStringLiteral(" \u25be") : QString(); }
    void describe() {
        setText(CaptionText(name_) + mark());
        setAccessibleName(TitleBar::tr("Schedule of %1").arg(name_));
        setAccessibleDescription(chooses_ ? TitleBar::tr("Opens the list of providers") : QString());
        const QString choose = TitleBar::tr("Select the provider whose schedule is shown (Ctrl+L)");
        const bool cut = width() < sizeHint().width();
        QStringList tip;
        if (cut)
            tip << name_;
        if (chooses_)
            tip << choose;
        setToolTip(TipText(tip.join(QLatin1Char('\n'))));
    }

    QString name_;
    bool chooses_ = false;
};

TitleBar::TitleBar(QWidget* parent)
    : QWidget(parent),
      pnltitle_(Named(new QLabel(this), "pnltitle")),
      cmdwhose_(Named(new WhoseButton(this), "cmdwhose")) {
    pnltitle_->setAccessibleName(tr("Title"));
    pnltitle_->setTextFormat(Qt::PlainText);
    for (QWidget* part : {static_cast<QWidget*>(pnltitle_), static_cast<QWidget*>(cmdwhose_)})
        part->setFont(HeadingFont(2));
    // The view below stays where it is when the button comes and goes.
    QSizePolicy stays(QSizePolicy::Preferred, QSizePolicy::Fixed);
    stays.setRetainSizeWhenHidden(true);
    cmdwhose_->setSizePolicy(stays);
    cmdwhose_->hide();
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(Space(12), Space(4), Space(12), Space(4));
    row->setSpacing(Space(12));
    row->addWidget(pnltitle_);
    row->addWidget(cmdwhose_);
    row->addStretch(1);
    connect(cmdwhose_, &QToolButton::clicked, this, &TitleBar::ChoiceRequested);
}

void TitleBar::ShowTitle(const QString& text) {
    pnltitle_->setText(text);
}

void TitleBar::ShowWhose(const QString& name) {
    if (name.isEmpty())
        cmdwhose_->hide();
    else
        cmdwhose_->SetName(name);
}

void TitleBar::LetChoose() {
    cmdwhose_->LetChoose();
}
