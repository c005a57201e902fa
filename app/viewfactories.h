#pragma once

#include "shell/mdisched.h"

/// Returns the routines that make the calendar views of this version.
[[nodiscard]] ViewFactories MakeViewFactories();
