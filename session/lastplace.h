#pragma once

#include <QString>
#include <QStringList>

#include "session/view.h"

/// What a user had on the screen last, in any copy of the program. Where several copies run for one user, the one that
/// wrote last counts.
struct LastPlace {
    View view = View::None;  ///< None for a user who starts for the first time, and for a view that does not exist.
    /// The provider, as long as the user may choose that provider. Both are empty otherwise.
    QString providerId, providerName;
    /// Whether no other user is offered the schedule of this user, as for a front desk.
    bool offeredToNobody = false;
};

/// Returns the statements that ReadLastPlace reads.
[[nodiscard]] QStringList LastPlaceStatements();
/// Reads what the logged-on user left last. What cannot be read counts as not kept.
[[nodiscard]] LastPlace ReadLastPlace();

/// Keep a view or a provider for the user's next start. A failure is passed over, as with every preference.
void KeepLastView(View view);
void KeepLastProvider(const QString& providerId);
