#include "platform/signature/sigplus.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QFile>
#include <QSignalSpy>
#include <QTabletEvent>
#include <QTemporaryDir>
#include <QTest>

#include "platform/signature/signaturetext.h"
#include "tests/platform/signature/writing.h"
#include "tests/support/files.h"

namespace {

const QString ModifiedText = QStringLiteral("2026/03/11 09:05 am");

/// A pen, turned to write or to erase, on a tablet that knows this of it.
const QPointingDevice& stylus(QPointingDevice::PointerType type = QPointingDevice::PointerType::Pen,
                              QInputDevice::Capabilities extra = QInputDevice::Capability::Pressure) {
    static std::vector<std::unique_ptr<QPointingDevice>> devices;
    devices.push_back(std::make_unique<QPointingDevice>(QStringLiteral("pen"), 1, QInputDevice::DeviceType::Stylus,
                                                        type, QInputDevice::Capability::Position | extra, 1, 2));
    return *devices.back();
}

class SignaturePad : public testing::Test {
  protected:
    SignaturePad() {
        pad.resize(300, 100);
        pad.show();
    }

    void key(const QString& text) { key(pad, text); }
    static void key(SigPlus& pad, const QString& text) {
        pad.SetEncryptionMode(0);
        pad.StartKey();
        pad.SetKeyText(text);
        pad.FinishKey();
        pad.SetEncryptionMode(2);
        pad.SetCompressionMode(1);
    }
    void write() {
        QTest::mousePress(&pad, Qt::LeftButton, {}, {50, 50});
        for (int x = 60; x <= 200; x += 10)
            move({x, 50 + x % 30});
        QTest::mouseRelease(&pad, Qt::LeftButton, {}, {210, 40});
    }
    void move(QPoint place, Qt::MouseButtons buttons = Qt::LeftButton) {
        QMouseEvent event(QEvent::MouseMove, place, pad.mapToGlobal(place), Qt::NoButton, buttons, {});
        QApplication::sendEvent(&pad, &event);
    }
    /// Whether the picture of the pad has ink at this place.
    bool hasInk(QPoint place) {
        const QImage image = pad.grab(QRect(place - QPoint(3, 3), QSize(7, 7))).toImage();
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (qGray(image.pixel(x, y)) < 90)
                    return true;
        return false;
    }
    void pen(QEvent::Type type, QPointF place, double pressure, Qt::MouseButton button = Qt::NoButton,
             const QPointingDevice& device = stylus()) {
        QTabletEvent event(type, &device, place, pad.mapToGlobal(place), pressure, 0, 0, 0, 0, 0, {}, button,
                           type == QEvent::TabletRelease ? Qt::NoButton : Qt::LeftButton);
        event.setAccepted(false);
        penWasTaken = QApplication::sendEvent(&pad, &event) && event.isAccepted();
    }
    static QPointingDevice* screen() {
        static QPointingDevice* device = QTest::createTouchDevice();
        return device;
    }
    /// What the pad holds, in full.
    Signature signature() {
        pad.SetEncryptionMode(0);
        return ReadSignature(pad.SignatureText(), {}).value_or(Signature());
    }

    SigPlus pad;
    bool penWasTaken = false;
    QTemporaryDir folder;
};

}  // namespace

TEST_F(SignaturePad, IsEmptyAtFirst) {
    EXPECT_EQ(pad.PointCount(), 0);
    EXPECT_EQ(pad.SignatureText(), QString());
    key(ModifiedText);
    EXPECT_EQ(pad.SignatureText(), QString());
}

TEST_F(SignaturePad, WhatTheMouseWritesIsSeenAtOnce) {
    QTest::mousePress(&pad, Qt::LeftButton, {}, {50, 30});
    move({120, 30});
    move({200, 30});
    EXPECT_EQ(pad.PointCount(), 3);
    EXPECT_TRUE(hasInk({80, 30}));
    EXPECT_FALSE(hasInk({250, 30}));
    QTest::mouseRelease(&pad, Qt::LeftButton, {}, {260, 30});
    EXPECT_TRUE(hasInk({250, 30}));
}

TEST_F(SignaturePad, OnlyTheLeftButtonWrites) {
    QTest::mousePress(&pad, Qt::RightButton, {}, {50, 50});
    move({90, 50}, Qt::RightButton);
    QTest::mouseRelease(&pad, Qt::RightButton, {}, {90, 50});
    move({120, 50}, Qt::NoButton);
    EXPECT_EQ(pad.PointCount(), 0);
}

TEST_F(SignaturePad, AClickIsADot) {
    QTest::mouseClick(&pad, Qt::LeftButton, {}, {50, 30});
    EXPECT_EQ(pad.PointCount(), 1);
    EXPECT_TRUE(hasInk({50, 30}));
}

TEST_F(SignaturePad, WhatIsWrittenPastTheEdgeStaysOnThePad) {
    QTest::mousePress(&pad, Qt::LeftButton, {}, {290, 50});
    move({900, -50});
    move({-900, 400});
    QTest::mouseRelease(&pad, Qt::LeftButton, {}, {-900, 400});
    EXPECT_TRUE(IsSound(signature()));
    EXPECT_EQ(signature().strokes[0][1], (InkPoint{4800, 0, EvenPressure}));
}

TEST_F(SignaturePad, ALostReleaseEndsTheStrokeWithTheNextMove) {
    QTest::mousePress(&pad, Qt::LeftButton, {}, {50, 50});
    move({90, 50});
    move({200, 90}, Qt::NoButton);
    move({250, 20});
    EXPECT_EQ(pad.PointCount(), 2);
}

TEST_F(SignaturePad, HidingThePadEndsTheStroke) {
    QTest::mousePress(&pad, Qt::LeftButton, {}, {50, 50});
    pad.hide();
    pad.show();
    move({250, 20});
    EXPECT_EQ(pad.PointCount(), 1);
}

TEST_F(SignaturePad, AFingerWrites) {
    QTest::touchEvent(&pad, screen()).press(1, {50, 30}, &pad);
    QTest::touchEvent(&pad, screen()).move(1, {120, 30}, &pad);
    QTest::touchEvent(&pad, screen()).release(1, {200, 30}, &pad);
    EXPECT_EQ(signature().strokes.size(), 1U);
    EXPECT_EQ(pad.PointCount(), 3);
    EXPECT_TRUE(hasInk({100, 30}));
}

TEST_F(SignaturePad, TheBallOfTheHandDoesNotWriteBesideTheFinger) {
    auto hand = QTest::touchEvent(&pad, screen(), false);
    hand.press(1, {50, 30}, &pad).commit();
    hand.stationary(1).press(2, {250, 90}, &pad).commit();
    hand.move(1, {100, 30}, &pad).move(2, {240, 80}, &pad).commit();
    hand.move(1, {150, 30}, &pad).release(2, {240, 80}, &pad).commit();
    hand.release(1, {200, 30}, &pad).commit();
    const Signature written = signature();
    ASSERT_EQ(written.strokes.size(), 1U);
    for (const InkPoint& point : written.strokes[0])
        EXPECT_EQ(point.y, 30 * UnitsPerPixel);
}

TEST_F(SignaturePad, ATouchThatTheScreenTakesBackLeavesNothing) {
    write();
    const int points = pad.PointCount();
    QTest::touchEvent(&pad, screen()).press(1, {50, 30}, &pad);
    QTest::touchEvent(&pad, screen()).move(1, {120, 30}, &pad);
    QTouchEvent cancel(QEvent::TouchCancel, screen());
    QApplication::sendEvent(&pad, &cancel);
    EXPECT_EQ(pad.PointCount(), points);
    write();
    EXPECT_EQ(pad.PointCount(), 2 * points);
    QTest::touchEvent(&pad, screen()).release(1, {120, 30}, &pad);
}

TEST_F(SignaturePad, ATouchThatTheScreenTakesBackLeavesTheStrokeOfTheMouse) {
    QTest::mousePress(&pad, Qt::LeftButton, {}, {50, 50});
    move({100, 60});
    QTouchEvent cancel(QEvent::TouchCancel, screen());
    QApplication::sendEvent(&pad, &cancel);
    move({150, 50});
    QTest::mouseRelease(&pad, Qt::LeftButton, {}, {200, 40});
    EXPECT_GE(pad.PointCount(), 4);
}

TEST_F(SignaturePad, APenWritesWithItsPressure) {
    pen(QEvent::TabletPress, {50, 30}, 0.25, Qt::LeftButton);
    EXPECT_TRUE(penWasTaken) << "Else the same stroke would come by the mouse again.";
    pen(QEvent::TabletMove, {100.5, 30.25}, 0.5);
    pen(QEvent::TabletMove, {150, 30}, 1.0);
    pen(QEvent::TabletRelease, {150, 30}, 0, Qt::LeftButton);
    EXPECT_EQ(signature().strokes, (std::vector<Stroke>{{{800, 480, 64}, {1608, 484, 128}, {2400, 480, 255}}}));
}

TEST_F(SignaturePad, APenThatKnowsNoPressureWritesEvenly) {
    const QPointingDevice& plain = stylus(QPointingDevice::PointerType::Pen, QInputDevice::Capability::None);
    pen(QEvent::TabletPress, {50, 30}, 0, Qt::LeftButton, plain);
    pen(QEvent::TabletRelease, {50, 30}, 0, Qt::LeftButton, plain);
    EXPECT_EQ(signature().strokes[0][0].pressure, EvenPressure);
}

TEST_F(SignaturePad, APenInTheAirOrTurnedRoundDoesNotWrite) {
    pen(QEvent::TabletMove, {50, 30}, 0);
    const QPointingDevice& eraser = stylus(QPointingDevice::PointerType::Eraser);
    pen(QEvent::TabletPress, {50, 30}, 1, Qt::LeftButton, eraser);
    EXPECT_FALSE(penWasTaken);
    pen(QEvent::TabletMove, {90, 30}, 1, Qt::NoButton, eraser);
    EXPECT_EQ(pad.PointCount(), 0);
}

TEST_F(SignaturePad, ClearTakesAllAwayAndDeleteDoesSo) {
    write();
    pad.Clear();
    EXPECT_EQ(pad.PointCount(), 0);
    EXPECT_FALSE(hasInk({100, 60}));
    write();
    QTest::keyClick(&pad, Qt::Key_Delete);
    EXPECT_EQ(pad.PointCount(), 0);
}

TEST_F(SignaturePad, CtrlZTakesBackOneStroke) {
    write();
    const int points = pad.PointCount();
    write();
    QTest::keySequence(&pad, QKeySequence::Undo);
    EXPECT_EQ(pad.PointCount(), points);
    QTest::keySequence(&pad, QKeySequence::Undo);
    QTest::keySequence(&pad, QKeySequence::Undo);
    EXPECT_EQ(pad.PointCount(), 0);
}

TEST_F(SignaturePad, CtrlZInTheMiddleOfAStrokeLeavesItToTheHand) {
    write();
    const int points = pad.PointCount();
    QTest::mousePress(&pad, Qt::LeftButton, {}, {20, 20});
    QTest::keySequence(&pad, QKeySequence::Undo);
    move({60, 30});
    QTest::mouseRelease(&pad, Qt::LeftButton, {}, {90, 25});
    EXPECT_GT(pad.PointCount(), points);
    QTest::keySequence(&pad, QKeySequence::Undo);
    EXPECT_EQ(pad.PointCount(), points);
}

TEST_F(SignaturePad, TheFormHearsOfEachStrokeOnce) {
    const QSignalSpy changed(&pad, &SigPlus::Changed);
    write();
    EXPECT_EQ(changed.count(), 1);
    pad.Clear();
    EXPECT_EQ(changed.count(), 2);
}

TEST_F(SignaturePad, ASealedSignatureIsShownAgainUnderItsKeyOnAPadOfAnotherSize) {
    write();
    key(ModifiedText);
    const QString text = pad.SignatureText();
    SigPlus other;
    other.resize(600, 200);
    key(other, ModifiedText);
    other.SetSignatureText(text);
    EXPECT_EQ(other.PointCount(), pad.PointCount());
    other.SetReadOnly(true);
    pad.SetReadOnly(true);
    QImage large = other.grab().toImage();
    large = large.scaled(pad.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    const QImage small = pad.grab().toImage();
    int different = 0;
    for (int y = 4; y < small.height() - 4; ++y)
        for (int x = 4; x < small.width() - 4; ++x)
            different += std::abs(qGray(small.pixel(x, y)) - qGray(large.pixel(x, y))) > 90 ? 1 : 0;
    EXPECT_LT(different, 30);
}

TEST_F(SignaturePad, AnotherKeyLeavesThePadEmpty) {
    write();
    key(ModifiedText);
    const QString text = pad.SignatureText();
    key(QStringLiteral("2026/03/11 09:06 am"));
    pad.SetSignatureText(text);
    EXPECT_EQ(pad.PointCount(), 0);
    key(ModifiedText);
    pad.SetSignatureText(text);
    EXPECT_GT(pad.PointCount(), 0);
}

TEST_F(SignaturePad, WithoutAKeyNothingIsSealedAndNothingSealedIsShown) {
    write();
    key(ModifiedText);
    const QString text = pad.SignatureText();
    for (const bool isFinished : {false, true}) {
        pad.StartKey();
        if (isFinished)
            pad.FinishKey();
        EXPECT_EQ(pad.SignatureText(), QString());
        pad.SetSignatureText(text);
        EXPECT_EQ(pad.PointCount(), 0);
        pad.SetEncryptionMode(0);
        pad.SetSignatureText(text);
        EXPECT_EQ(pad.PointCount(), 0);
        pad.SetEncryptionMode(2);
        write();
    }
}

TEST_F(SignaturePad, AnOpenSignatureIsNoneWhereASealedOneIsAskedFor) {
    write();
    pad.SetEncryptionMode(0);
    const QString open = pad.SignatureText();
    key(ModifiedText);
    pad.SetSignatureText(open);
    EXPECT_EQ(pad.PointCount(), 0);
}

TEST_F(SignaturePad, TheKeyTextMayComeInPieces) {
    write();
    key(ModifiedText);
    const QString text = pad.SignatureText();
    pad.StartKey();
    pad.SetKeyText(QStringLiteral("2026/03/11 "));
    pad.SetKeyText(QStringLiteral("09:05 am"));
    pad.FinishKey();
    pad.SetSignatureText(text);
    EXPECT_GT(pad.PointCount(), 0);
}

TEST_F(SignaturePad, SettingKeyAndModesLeavesWhatIsWritten) {
    write();
    const int points = pad.PointCount();
    key(ModifiedText);
    EXPECT_EQ(pad.PointCount(), points);
}

TEST_F(SignaturePad, CompressionMakesTheTextShorter) {
    write();
    key(ModifiedText);
    const qsizetype packed = pad.SignatureText().size();
    pad.SetCompressionMode(0);
    EXPECT_LT(packed, pad.SignatureText().size());
}

TEST_F(SignaturePad, AFileOfTheWebServiceIsImported) {
    const QString path = folder.filePath(QStringLiteral("my.sig"));
    const QByteArray text = WriteSignature(aSignature(), SignaturePacking::Numbers, {}).toLatin1();
    for (const QByteArray& contents : {text, " \r\n" + text.left(40) + "\n  " + text.mid(40) + "\xC2\xA0\n"}) {
        PutFile(path, contents);
        pad.Clear();
        EXPECT_TRUE(pad.ImportFile(path));
        EXPECT_EQ(signature(), aSignature());
        pad.SetEncryptionMode(2);
    }
}

TEST_F(SignaturePad, AFileOfTheLongestSignatureIsImported) {
    const QString path = folder.filePath(QStringLiteral("my.sig"));
    PutFile(path, WriteSignature(theLargestSignature(), SignaturePacking::Numbers, {}).toLatin1());
    EXPECT_TRUE(pad.ImportFile(path));
    EXPECT_EQ(pad.PointCount(), MostPoints);
}

TEST_F(SignaturePad, AFileUnderThePresentKeyIsImported) {
    const QString path = folder.filePath(QStringLiteral("my.sig"));
    PutFile(path, WriteSignature(aSignature(), SignaturePacking::Differences, SealingKey(ModifiedText)).toLatin1());
    EXPECT_FALSE(pad.ImportFile(path));
    key(ModifiedText);
    EXPECT_TRUE(pad.ImportFile(path));
    EXPECT_EQ(pad.PointCount(), aSignature().PointCount());
}

TEST_F(SignaturePad, AFileThatIsNoSignatureLeavesThePadEmpty) {
    const QString path = folder.filePath(QStringLiteral("my.sig"));
    for (const QByteArray& contents :
         {QByteArray(), QByteArray("Internal Server Error"), QByteArray(10 * 1024 * 1024, 'A'),
          QByteArray(10 * 1024 * 1024, ' '), QByteArray("\xFF\xFE\x00\xD8", 4)}) {
        PutFile(path, contents);
        write();
        EXPECT_FALSE(pad.ImportFile(path));
        EXPECT_EQ(pad.PointCount(), 0);
    }
    write();
    EXPECT_FALSE(pad.ImportFile(folder.filePath(QStringLiteral("none.sig"))));
    EXPECT_EQ(pad.PointCount(), 0);
    EXPECT_FALSE(pad.ImportFile(folder.path()));
}

TEST_F(SignaturePad, AReadOnlyPadTakesNeitherStrokesNorKeys) {
    write();
    const int points = pad.PointCount();
    pad.SetReadOnly(true);
    write();
    pen(QEvent::TabletPress, {50, 30}, 1, Qt::LeftButton);
    QTest::touchEvent(&pad, screen()).press(1, {50, 30}, &pad);
    QTest::touchEvent(&pad, screen()).release(1, {50, 30}, &pad);
    QTest::keyClick(&pad, Qt::Key_Delete);
    QTest::keySequence(&pad, QKeySequence::Undo);
    EXPECT_EQ(pad.PointCount(), points);
    EXPECT_EQ(pad.focusPolicy(), Qt::NoFocus);
}

TEST_F(SignaturePad, TakesNoMorePointsThanATextHolds) {
    QTest::mousePress(&pad, Qt::LeftButton, {}, {50, 50});
    for (int i = 0; i < MostPoints + 100; ++i)
        move({50 + i % 2 * 100, 50});
    QTest::mouseRelease(&pad, Qt::LeftButton, {}, {10, 10});
    EXPECT_EQ(pad.PointCount(), MostPoints);
    write();
    EXPECT_EQ(pad.PointCount(), MostPoints);
    key(ModifiedText);
    const QString text = pad.SignatureText();
    pad.SetSignatureText(text);
    EXPECT_EQ(pad.PointCount(), MostPoints);
}

TEST_F(SignaturePad, AHandThatRestsAddsNoPoints) {
    QTest::mousePress(&pad, Qt::LeftButton, {}, {50, 50});
    for (int i = 0; i < 50; ++i)
        move({50 + i % 2, 50});
    QTest::mouseRelease(&pad, Qt::LeftButton, {}, {50, 50});
    EXPECT_EQ(pad.PointCount(), 1);
}

TEST_F(SignaturePad, WritingGoesOnUnderThePenWhenThePadHasAnotherSize) {
    write();
    pad.resize(450, 100);
    QTest::mouseClick(&pad, Qt::LeftButton, {}, {100, 20});
    EXPECT_TRUE(hasInk({100, 20}));
    EXPECT_TRUE(IsSound(signature()));
}

TEST_F(SignaturePad, AScreenReaderHearsWhetherItIsSigned) {
    const QAccessibleInterface* reader = QAccessible::queryAccessibleInterface(&pad);
    EXPECT_EQ(reader->text(QAccessible::Name), QStringLiteral("Signature pad"));
    EXPECT_TRUE(reader->text(QAccessible::Description).startsWith(QStringLiteral("Is empty.")));
    write();
    EXPECT_TRUE(reader->text(QAccessible::Description).startsWith(QStringLiteral("Holds a signature.")));
    pad.SetReadOnly(true);
    EXPECT_EQ(reader->text(QAccessible::Description), QStringLiteral("Holds a signature."));
}
