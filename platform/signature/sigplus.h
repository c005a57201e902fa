#pragma once

#include <QWidget>

#include "platform/signature/strokes.h"

class QTouchEvent;

/// A pad on which the user writes a signature with the mouse, a finger or a pen, and which shows it again.
///
/// A signature leaves and enters the pad as a text (signaturetext.h). The key text seals it: a text that was made under
/// another key text, or that was changed by a single character, is no signature, and the pad stays empty. The key is
/// set in three steps, StartKey, SetKeyText and FinishKey, and holds until the next StartKey.
///
/// Keys: Delete clears the pad, Ctrl+Z takes back the last stroke. Only the left mouse button and one finger at a time
/// write. The pad takes 10,000 points; what is written after that is left out.
class SigPlus : public QWidget {
    Q_OBJECT

  public:
    explicit SigPlus(QWidget* parent = nullptr);

    /// Takes all strokes away. The key and the modes stay.
    void Clear();
    /// Returns the number of points of all strokes, 0 for an empty pad.
    [[nodiscard]] int PointCount() const;

    /// Forgets the key and begins a new one.
    void StartKey();
    /// Adds to the text of the key that was begun.
    void SetKeyText(const QString& text);
    /// Makes the key of the text. An empty text makes no key.
    void FinishKey();

    /// 0 leaves the text open for everybody, as the signature service writes it. Any other mode, as the system's 2,
    /// seals the text under the key. The mode counts for the next text; the strokes stay.
    void SetEncryptionMode(int mode);
    /// 0 writes each point in full as readable numbers, 1 writes the differences of points, in about half the
    /// length. Texts of both modes are read.
    void SetCompressionMode(int mode);

    /// Returns the signature as a text under the present modes. It is empty for an empty pad, and where the mode needs
    /// a key and there is none.
    [[nodiscard]] QString SignatureText() const;
    /// Shows the signature of a text. One that cannot be read under the present key and encryption mode leaves the pad
    /// empty, with a PointCount of 0.
    void SetSignatureText(const QString& text);
    /// Shows the signature of a file that holds a text of encryption mode 0, or one under the present key. White space
    /// in the file counts for nothing. Returns false, with the pad empty, where the file cannot be read as a signature.
    bool ImportFile(const QString& path);

    /// A read-only pad shows a signature and takes no strokes, keys or focus.
    void SetReadOnly(bool readOnly);
    [[nodiscard]] bool IsReadOnly() const { return readOnly_; }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

  Q_SIGNALS:
    /// Raised when a stroke was finished or taken back, and when the pad was cleared or shows another signature.
    void Changed();

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void tabletEvent(QTabletEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void hideEvent(QHideEvent* event) override;

  private:
    enum class Hand { None, Mouse, Finger, Pen };  ///< Who writes the present stroke.

    void hold(Signature signature);
    bool touched(const QTouchEvent& touch);
    void begin(Hand hand, QPointF place, double pressure);
    void extend(QPointF place, double pressure);
    void finish();
    void takeBack();
    void tellAssistants();

    Signature signature_;
    QByteArray key_;
    QString keyText_;
    int encryption_ = 0;
    int compression_ = 0;
    bool readOnly_ = false;
    Hand hand_ = Hand::None;
    int finger_ = 0;  ///< The touch point that writes, while a finger does.
};
