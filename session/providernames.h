#pragma once

#include <QHash>
#include <QString>

/// The surnames (`prov_lastname`) of all providers, archived ones too. One read serves a whole list or report.
class ProviderNames {
  public:
    /// Returns the statement that is read.
    [[nodiscard]] static QString Statement();
    /// Reads the names. Throws db::DatabaseError.
    ProviderNames();

    /// Returns the surname of the provider with that id, or the id itself where the provider has no name or has been
    /// removed.
    [[nodiscard]] QString Of(const QString& id) const;

  private:
    QHash<QString, QString> names_;
};
