#pragma once

#include "shell/mdisched.h"

/// The calendar views of this version.
[[nodiscard]] ViewFactories MakeViewFactories();
