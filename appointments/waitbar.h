#pragma once

#include <QFrame>
#include <QTimer>
#include <vector>

#include "appointments/freedtimes.h"
#include "appointments/waitoffers.h"

class MainWindow;
class QLabel;
class QPushButton;
class QToolButton;
class ctList;

/// Offers an hour that fell free to those of the wait list who fit it. The bar stands below the notices of the main
/// window while somebody fits, and is hidden otherwise.
///
/// It appears when a write of this desk has freed a time, or when a view saw that another desk has (TellFreedTime), and
/// no dialog is open. It is brought up to date after each write to appointments and when the view is read anew
/// (RecheckOffers), so that it goes when the hour is taken again. It never takes the focus by itself, since the user
/// may be typing. It is not there for users who may not write.
///
/// Keys: F6 goes to the list, Up and Down through it, Enter books, Escape closes the bar. A click on a line books too.
/// Booking goes to the day and provider, and opens the editor with everything filled in. Its save closes the entry.
class WaitBar : public QFrame {
    Q_OBJECT

  public:
    /// The newest bar is the one that the routines below speak to, until it is destroyed. It watches the session's
    /// connection.
    explicit WaitBar(MainWindow& main, QWidget* parent = nullptr);
    ~WaitBar() override;

    /// Shows who waits for a time that the user asks about, besides the offers that stand, and gives the focus to the
    /// first of them. Where nobody does, or the time is past, a notice says so and the other offers stay.
    void Ask(const FreedTime& time);
    /// Takes the offers away.
    void Clear();
    /// Takes the offers away and forgets what is not offered yet, because the database was opened again.
    void Forget();

    QLabel* lbloffers = nullptr;
    ctList* lstoffers = nullptr;
    QPushButton* cmdbook = nullptr;
    QToolButton* cmdcloseoffers = nullptr;

  Q_SIGNALS:
    /// Raised when the bar had the focus and is hidden now.
    void FocusGivenBack();

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    friend void TellFreedTime(const FreedTime& freed);
    friend void RecheckOffers();

    void buildBar();
    void look();
    void readOffers();
    [[nodiscard]] int lineOf(const FreedTime& time) const;
    void showOffers();
    void hideOffers();
    void addOffer(const WaitOffer& offer);
    [[nodiscard]] QString heading() const;
    void announce();
    void fitList();
    void take();
    void book(const WaitOffer& offer);
    void goTo(const WaitOffer& offer);
    void tellGone();

    MainWindow& main_;
    FreedTimes freed_;
    QTimer due_;
    std::vector<FreedTime> times_;  ///< The times that are offered, or will be when they can be read.
    std::vector<WaitOffer> offers_;
    bool booking_ = false;
};

/// Tells the bar that a time fell free at another desk. It does nothing where there is no bar.
void TellFreedTime(const FreedTime& freed);
/// Brings the offers up to date, and offers what could not be read before. It costs no trip where there is nothing.
void RecheckOffers();
/// Asks who waits for a time (WaitBar::Ask).
void AskWhoWaits(const FreedTime& time);
