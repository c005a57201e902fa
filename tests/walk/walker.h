#pragma once

#include <map>
#include <QElapsedTimer>
#include <QObject>

#include "tests/walk/walkplace.h"

namespace walk {

/// How a walk goes, as the environment tells it: SVS_WALK_SEED, SVS_WALK_SECONDS, SVS_WALK_ROUNDS,
/// SVS_WALK_HOME.
struct Plan {
    unsigned seed = 1;
    int seconds = 60;  ///< After these it leaves the program, wherever it is.
    int rounds = 0;    ///< 0: at random. Else it tries everything it finds so many times, and ends when it has.
    int home = 0;      ///< The number of the view to which it comes back from every other; 0 for none.

    [[nodiscard]] static Plan FromEnvironment();
};

/// Walks through the program from within its own event loops, those of its dialogs included, and at the end leaves it.
/// Each step goes to the standard output before it is done, so that the last one before a crash is known.
class Walker : public QObject {
    Q_OBJECT

  public:
    explicit Walker(const Plan& plan);

  private:
    struct Tally {
        int tries = 0;
        QString leadsTo;
    };
    using Deeds = std::map<QString, Tally>;

    void step();
    void await();
    void learn(const Place& place);
    [[nodiscard]] const Deed* choose(const Place& place);
    [[nodiscard]] const Deed* leastTried(const Place& place, const std::vector<Deed>& among);
    [[nodiscard]] const Deed* wayToSomethingNew(const Place& place);
    [[nodiscard]] const Deed* anyOf(const std::vector<Deed>& among);
    [[nodiscard]] bool hasSomethingNew(const QString& place) const;
    [[nodiscard]] const Deed* wayToNextView(const Place& place);
    [[nodiscard]] const Deed* wayToView(int number);
    void doIt(const QString& place, const Deed& deed);
    void tellCoverage() const;
    void leave(const Place& place);

    Plan plan_;
    Chance chance_;
    QElapsedTimer clock_;
    int steps_ = 0;
    bool leaving_ = false;
    std::map<QString, Deeds> places_;
    int viewsInARowWithoutNews_ = 0;
    Deed nextView_;
    QString lastPlace_;
    QString lastDeed_;
};

}  // namespace walk
