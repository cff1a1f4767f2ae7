/// Color and font of a text or a line, each with its button and a label that shows it.
#ifndef DRAWSTYLE_H
#define DRAWSTYLE_H

#include <QColor>
#include <QFont>
#include <QWidget>

class QLabel;

/// Starts red, in the font of the program. The buttons open the standard dialogs; leaving these changes nothing.
class DrawStyle : public QWidget
{
    Q_OBJECT

public:
    explicit DrawStyle(QWidget* parent = nullptr);

    const QColor& color() const { return _color; }
    const QFont& textFont() const { return _font; }

signals:
    void colorChosen(const QColor& color);
    void fontChosen(const QFont& font);

public slots:
    void chooseColor();
    void chooseFont();

private:
    void showColor();
    void showFont();

    QLabel* _colorLabel;  // children
    QLabel* _fontLabel;
    QColor _color = Qt::red;
    QFont _font;
};

#endif
