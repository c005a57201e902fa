#pragma once

#include <functional>
#include <optional>
#include <QString>
#include <QWidget>
#include <vector>

class QVBoxLayout;
class ctList;

/// A provider on the panel.
struct ListedProvider {
    QString id;
    QString name;
    QString discipline;
    bool shown = true;  ///< Whether the provider is checked and has a column in the view.

    friend bool operator==(const ListedProvider&, const ListedProvider&) = default;
};

/// The providers from whom the user chooses the columns of a view: a list with check boxes under a heading. The user
/// cannot clear the last box, so that the view is never left without a column.
class ProviderPanel : public QWidget {
    Q_OBJECT

  public:
    enum class Columns { Provider, ProviderAndDiscipline };

    explicit ProviderPanel(Columns columns, QWidget* parent = nullptr);

    void Clear();
    void Add(const ListedProvider& provider);
    /// Checks the wanted providers and clears the boxes of all others, without raising ChoiceChanged. When nobody is
    /// wanted, nobody is checked.
    void CheckThose(const std::function<bool(const ListedProvider& provider)>& wanted);
    void CheckAll();
    /// Checks the providers of a text that Choice returned, whose ids are compared exactly. An empty text checks all.
    void Choose(const QString& choice);

    /// Returns all providers in the order of the list.
    [[nodiscard]] std::vector<ListedProvider> Providers() const;
    /// Returns the provider with this id, in any case of letters, or nothing when no such provider is listed.
    [[nodiscard]] std::optional<ListedProvider> Find(const QString& id) const;
    /// Returns the ids of the checked providers in the order of the list, each followed by "|".
    [[nodiscard]] QString Choice() const;
    /// Returns the layout, which holds the heading and the list from top to bottom. A view may add rows of its own.
    [[nodiscard]] QVBoxLayout& Rows() const { return *rows_; }
    [[nodiscard]] ctList& List() const { return *ctList1; }

  Q_SIGNALS:
    /// Raised after the user checked or cleared a provider.
    void ChoiceChanged();

  private:
    void followCheck(int row);

    QVBoxLayout* rows_;
    ctList* ctList1;
};

/// The statement of the providers who may stand on a panel, by name: the active ones who are not excluded from the
/// scheduler. The user is among them even when excluded.
[[nodiscard]] QString ListedProvidersStatement();

/// Reads the choice that the user who is logged on has stored under this preference. When there is none yet, it stores
/// an empty one. Throws DatabaseError.
[[nodiscard]] QString ReadChoice(const QString& category, const QString& detail);
/// Stores a choice in the row that ReadChoice has read or added. Throws DatabaseError.
void WriteChoice(const QString& category, const QString& detail, const QString& choice);
