#pragma once

#include <QString>

/// Returns why the browser could not lock up the pages that it shows, a sentence for the user; else an empty text. The
/// browser would end the whole program instead of telling.
[[nodiscard]] QString WhyThereIsNoSandbox();
