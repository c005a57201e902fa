#pragma once

#include <functional>
#include <optional>
#include <QString>
#include <QWidget>
#include <vector>

class QVBoxLayout;
class ctList;

/// A provider of the panel.
struct ListedProvider {
    QString id;
    QString name;
    QString discipline;
    bool shown = true;  ///< Checked: has a column in the view.

    friend bool operator==(const ListedProvider&, const ListedProvider&) = default;
};

/// The providers of whom a view shows a column each: a list with a check box in each row, under a heading. By hand at
/// least one stays checked, so that the view is never empty unseen. What a view checks itself raises no signal.
class ProviderPanel : public QWidget {
    Q_OBJECT

  public:
    enum class Columns { Provider, ProviderAndDiscipline };

    explicit ProviderPanel(Columns columns, QWidget* parent = nullptr);

    void Clear();
    void Add(const ListedProvider& provider);
    /// Checks those who are wanted and nobody else, which may be nobody.
    void CheckThose(const std::function<bool(const ListedProvider& provider)>& wanted);
    void CheckAll();
    /// Checks those of a choice as Choice tells it, compared to the letter; everybody where it is empty.
    void Choose(const QString& choice);

    /// In the order of the list.
    [[nodiscard]] std::vector<ListedProvider> Providers() const;
    /// The provider of this id, in whichever case; nothing for one who is not listed.
    [[nodiscard]] std::optional<ListedProvider> Find(const QString& id) const;
    /// The ids of those who are checked in the order of the list, each followed by "|".
    [[nodiscard]] QString Choice() const;
    /// Heading and list from top to bottom, to which a view may add its own rows.
    [[nodiscard]] QVBoxLayout& Rows() const { return *rows_; }
    [[nodiscard]] ctList& List() const { return *ctList1; }

  Q_SIGNALS:
    /// The user has checked others than before.
    void ChoiceChanged();

  private:
    void followCheck(int row);

    QVBoxLayout* rows_;
    ctList* ctList1;
};

/// The choice that the user logged on left under this preference. Where there is none yet it is "", and its row is
/// made. Throws DatabaseError.
[[nodiscard]] QString ReadChoice(const QString& category, const QString& detail);
/// Throws DatabaseError.
void WriteChoice(const QString& category, const QString& detail, const QString& choice);
