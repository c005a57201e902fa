#pragma once

#include <ostream>
#include <QByteArray>
#include <QDate>

/// A time zone and a day on which its clocks go forward there. The rule is written out, since not every system has the
/// tables of the zones.
struct ZoneOfTest {
    const char* name;
    const char* rule;
    QDate change;
    bool skipsMidnight;
};

inline std::ostream& operator<<(std::ostream& out, const ZoneOfTest& zone) {
    return out << zone.name;
}

inline const ZoneOfTest zonesOfTest[] = {
    {"NewYork", "EST5EDT,M3.2.0,M11.1.0", QDate(2026, 3, 8), false},
    {"Santiago", "<-04>4<-03>,M9.1.6/24,M4.1.6/24", QDate(2026, 9, 6), true},
    {"Cairo", "EET-2EEST,M4.5.5/0,M10.5.4/24", QDate(2026, 4, 24), true},
    {"Havana", "CST5CDT,M3.2.0/0,M11.1.0/1", QDate(2026, 3, 8), true},
};

/// The computer stands in this zone while the object lives.
class InTimeZone {
  public:
    explicit InTimeZone(const ZoneOfTest& zone);
    ~InTimeZone();
    InTimeZone(const InTimeZone&) = delete;
    InTimeZone& operator=(const InTimeZone&) = delete;

  private:
    bool hadZone_;
    QByteArray before_;
};
