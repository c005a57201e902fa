#pragma once

#include "views/mdisched.h"

/// The calendar views of this version.
[[nodiscard]] ViewFactories MakeViewFactories();
