#pragma once

#include <QDate>

#include "data/demo/demo.h"
#include "tests/support/testdatabase.h"

/// A small practice around one day, in two test databases.
class DemoPractice {
  public:
    explicit DemoPractice(QDate today = QDate(2026, 11, 18), std::uint64_t seed = 1) {
        summary = demo::MakePractice({seed, 1000, today}, main.connection(), companion.connection(),
                                     {QStringLiteral("."), QStringLiteral("companion")});
    }

    TestDatabase main{SchemaScript::Main};
    TestDatabase companion{SchemaScript::Companion};
    demo::Summary summary;
};
