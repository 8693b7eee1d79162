#pragma once
// Moved to tests/support; kept here for the command-line tests that still name this path.
#include "../support/archive_fixture.h"
