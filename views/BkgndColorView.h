#pragma once
// The swatch that shows one colour sample: empty, it invites a drop; filled, it paints the
// sample's D50 Lab colour as a rounded rectangle with a two-line caption. It parses nothing
// itself: a dropped document's text goes to its delegate, which sends the colour back.

#include "color_types.h"

#include <QColor>
#include <QString>
#include <QWidget>

class BkgndColorViewDelegate;

class BkgndColorView : public QWidget
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

    QSize sizeHint() const override { return {220, 160}; }

Q_SIGNALS:
    void swatchLabelChanged(const QString &swatchLabel);

protected:
    void paintEvent(QPaintEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    void paintEmptyTarget(QPainter &painter);

    LabColor m_labColor{0, 0, 0, 0};
    QString m_swatchLabel;
    QColor m_color;
    QString m_labLabel;
    QColor m_labelColor;
    BkgndColorViewDelegate *m_delegate = nullptr;
    bool m_dragHighlight = false;
};
