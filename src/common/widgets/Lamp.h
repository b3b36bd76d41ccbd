#pragma once

#include <QColor>
#include <QWidget>

// A round indicator lamp, drawn rather than loaded from pictures so that it
// stays sharp at any screen scale. "On" shows the lamp's colour lit, "off" a
// dark glass of the same hue. A clickable lamp emits clicked() on a mouse
// click or Space while it has the focus.
class Lamp : public QWidget {
    Q_OBJECT
    Q_PROPERTY(bool on READ isOn WRITE setOn)
public:
    enum class Color {
        Red,
        Green,
        Yellow,
        Orange
    };

    explicit Lamp(Color color, QWidget* parent = nullptr);

    bool isOn() const { return m_on; }
    void setOn(bool on);

    Color color() const { return m_color; }

    bool isClickable() const { return m_clickable; }
    void setClickable(bool clickable);

    // The lamp's diameter in lines of text of its font (1.5 unless set).
    void setSizeInLines(qreal lines);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    void clicked();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QColor litColor() const;

    Color m_color;
    bool m_on = false;
    bool m_clickable = false;
    bool m_pressed = false;
    qreal m_lines = 1.5;
};
