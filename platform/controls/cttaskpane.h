#pragma once

#include <map>
#include <QIcon>
#include <QScrollArea>
#include <vector>

class QLabel;
class QToolButton;
class QVBoxLayout;

/// A column of groups that fold up under their captions. A group holds items or a widget of the caller's. One item of
/// the whole pane is selected. Groups and items are named by keys.
///
/// Keys: Up and Down move between captions and items, Enter or Space chooses, Left folds a group up and Right unfolds
/// it.
class ctTaskPane : public QScrollArea {
    Q_OBJECT

  public:
    explicit ctTaskPane(QWidget* parent = nullptr);

    void SetHeading(const QString& caption, const QString& key);
    void AddGroup(const QString& caption, const QString& key);
    /// Adds a widget to the group's content. The group becomes its parent.
    void AddWidget(const QString& groupKey, QWidget* content);
    void AddItem(const QString& groupKey, const QString& text, const QString& key, const QIcon& icon,
                 const QString& hint);
    void SetGroupVisible(const QString& key, bool visible);
    void SetGroupExpanded(const QString& key, bool expanded);
    /// Enables or disables an item. `hint` says why a disabled item cannot be chosen.
    void SetItemEnabled(const QString& key, bool enabled, const QString& hint);
    /// Selects an item without raising a signal. A key of no item leaves nothing selected.
    void SetSelectedKey(const QString& key);

    [[nodiscard]] QString HeadingCaption() const;
    [[nodiscard]] QString HeadingKey() const { return headingKey_; }
    [[nodiscard]] QString SelectedKey() const { return selectedKey_; }
    [[nodiscard]] bool GroupVisible(const QString& key) const;
    [[nodiscard]] bool GroupExpanded(const QString& key) const;
    [[nodiscard]] QString GroupCaption(const QString& key) const;
    [[nodiscard]] QToolButton* Item(const QString& key) const;
    [[nodiscard]] QToolButton* GroupButton(const QString& key) const;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  Q_SIGNALS:
    /// Raised when the user has chosen an item, which is now the selected one.
    void ItemChosen(const QString& key);
    /// Raised when the user closes the pane.
    void CloseRequested();

  private:
    struct Group {
        QWidget* box = nullptr;
        QToolButton* caption = nullptr;
        QWidget* content = nullptr;
    };
    struct PaneItem {
        QString key;
        QToolButton* button = nullptr;
    };

    void choose(const QString& key);
    void showExpanded(const Group& group);
    void moveFocus(QWidget* from, int direction);
    [[nodiscard]] std::vector<QWidget*> focusOrder() const;
    [[nodiscard]] const Group* groupOf(const QWidget* widget) const;

    QWidget* column_ = nullptr;
    QVBoxLayout* layout_ = nullptr;
    QLabel* heading_ = nullptr;
    QString headingKey_;
    QString selectedKey_;
    std::vector<QString> groupKeys_;
    std::map<QString, Group> groups_;
    std::vector<PaneItem> items_;
};
