#pragma once
// The swatch that shows one colour sample. Empty, it is a drop target for CxF documents (a file,
// a promised file, or CxF data); filled, it paints the sample's D50 Lab colour as a rounded
// rectangle with a two-line caption. It parses nothing itself: the dropped document's text goes
// to its delegate, which sends the colour and caption back.

#include "QVFileDropView.h"
#include "color_types.h"

#include <QColor>
#include <QString>

class BkgndColorViewDelegate;

class BkgndColorView : public QVFileDropView, public QVFileDropDelegate
{
    Q_OBJECT
    Q_PROPERTY(QString swatchLabel READ swatchLabel WRITE setSwatchLabel NOTIFY swatchLabelChanged)

public:
    explicit BkgndColorView(QWidget *parent = nullptr);
    ~BkgndColorView() override;

    // An alpha of 0 means no colour has been set: the view shows its empty look.
    LabColor labColor() const { return m_labColor; }
    void setLabColor(LabColor labColor);

    QString swatchLabel() const { return m_swatchLabel; }
    void setSwatchLabel(const QString &swatchLabel);

    // Not owned.
    BkgndColorViewDelegate *delegate() const { return m_delegate; }
    void setDelegate(BkgndColorViewDelegate *delegate) { m_delegate = delegate; }

    // The two caption lines and their colour, as painted.
    QString labLabel() const { return m_labLabel; }
    QColor labelColor() const { return m_labelColor; }
    QColor color() const { return m_color; }

    // The view is its own drag delegate: every accepted drop and paste comes here whole, and a
    // promised file's outcome comes to dropViewTakeFiles.
    Methods implementedMethods() const override { return TakeDataFromPasteboard | TakeFiles; }
    void dropViewTakeDataFromPasteboard(QVFileDropView *view, const QMimeData *pasteboard,
                                        QObject *sender) override;
    void dropViewTakeFiles(QVFileDropView *view, const std::optional<QList<QUrl>> &files) override;

Q_SIGNALS:
    void swatchLabelChanged(const QString &swatchLabel);

protected:
    void paintEvent(QPaintEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    void sendText(const QByteArray &text);

    LabColor m_labColor{0, 0, 0, 0};
    QString m_swatchLabel;
    QColor m_color;
    QString m_labLabel;
    QColor m_labelColor; // the caption's foreground colour
    BkgndColorViewDelegate *m_delegate = nullptr;
};
