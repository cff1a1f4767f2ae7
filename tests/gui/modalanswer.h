/// Answers the modal dialog that the next call opens, for the GUI tests.
#ifndef MODALANSWER_H
#define MODALANSWER_H

#include <QApplication>
#include <QDialog>
#include <QTimer>

#include <functional>

/// While it lives, each modal dialog that comes up is given to the answer, which has to end it.
class ModalAnswer
{
public:
    explicit ModalAnswer(std::function<void(QDialog*)> answer)
    {
        QObject::connect(&_timer, &QTimer::timeout, &_timer, [this, answer = std::move(answer)] {
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (!dialog) return;
            ++count;
            answer(dialog);
        });
        _timer.start(5);
    }
    int count = 0;  ///< dialogs answered

private:
    QTimer _timer;
};

#endif
