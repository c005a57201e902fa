#include "tests/desks/deskfront.h"

namespace {

/// Reports by mouse and keyboard, on a month that takes a while.
class Reporting : public FrontDesk {
  protected:
    static constexpr int Rows = 10'000;

    Reporting() {
        const QString note = u'|' + QStringLiteral("long words of a note ").repeated(150);
        std::vector<std::vector<db::Value>> rows;
        for (int row = 0; row < Rows; ++row)
            rows.push_back({day, 480 + row % 600, 490 + row % 600, QStringLiteral("O'Brien, Anna"), note, 16711681,
                            QStringLiteral("REED"), QStringLiteral("10017")});
        connection.BeginTrans();
        connection.InsertRows(
            QStringLiteral("appointments"),
            {"dapptdate", "nStartTime", "nEndTime", "cappttext", "CapptNote", "ncolor", "clinicianid", "patientid"},
            rows);
        connection.CommitTrans();
    }
    void openReport() {
        person->press({QStringLiteral("alt+f")});
        person->turnTo("popup");
        person->press({QStringLiteral("r"), QStringLiteral("s")});
        person->turnTo("frmschrpt");
    }
    void click(const char* widget) { person->click(desk->tell("widgetPlace", QLatin1String(widget))); }
    [[nodiscard]] QString status() const { return desk->tell("text", QStringLiteral("lblstatus")); }
    [[nodiscard]] bool isSaid(const char* begin) {
        return soon([this, begin] { return status().startsWith(QLatin1String(begin)); });
    }
    /// Cuts the range down to a day without appointments but one.
    void shorten() {
        for (const char* date : {"ctdate0", "ctdate1"})
            desk->tell("replace", QLatin1String(date), QStringLiteral("3/12/2026"));
    }
};

}  // namespace

TEST_F(Reporting, AReportIsCancelledMadeAgainAndPrintedToAFileTwice) {
    connection.Execute(
        "Insert Into appointments (dapptdate, nStartTime, nEndTime, cappttext, ncolor, clinicianid, patientid) Values ('2026/03/12', 540, 600, 'O''Brien, Anna', 49152, 'REED', '10017')");
    openReport();
    person->picture("report-making");
    person->press({QStringLiteral("Escape")});
    EXPECT_TRUE(isSaid("The report is cut short: it ends after ")) << status().toStdString();
    click("cmdgenerate1");
    ASSERT_TRUE(soon([this] { return status().endsWith(QStringLiteral("entries")); })) << status().toStdString();
    click("cmdcancel");
    EXPECT_TRUE(isSaid("The report is cut short: it ends after ")) << status().toStdString();
    person->picture("report-cut");

    shorten();
    for (int time = 1; time <= 2; ++time) {
        person->press({QStringLiteral("alt+r")});
        ASSERT_TRUE(soon([this] { return status().isEmpty(); })) << status().toStdString();
        person->picture("report");
        const QString file = folder.filePath(QStringLiteral("report%1.pdf").arg(time));
        if (time == 1)
            person->press({QStringLiteral("ctrl+s")});
        else
            click("cmdsave");
        person->chooseFile(file);
        person->turnTo("frmschrpt");
        EXPECT_TRUE(isSaid("Saved as "));
        EXPECT_TRUE(FileBytes(file).startsWith("%PDF-"));
    }
    person->press({QStringLiteral("Escape")});
    person->turnTo("mdisched");
}

TEST_F(Reporting, TheFormClosesInTheMiddleOfAReportAndOpensAgain) {
    for (int time = 0; time < 2; ++time) {
        openReport();
        person->press({QStringLiteral("alt+c")});
        person->turnTo("mdisched");
    }
}
