#pragma once

#include "user_input/user_hand.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFileDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QTimer>

namespace vx_test {
namespace hand = vx::user_hand;

/// Answers each question by the button of that name, each file dialog and password by that text.
class answerer
{
public:
    answerer(char const *button, QString text = {}) : f_button(button), f_text(std::move(text))
    {
        QObject::connect(&f_timer, &QTimer::timeout, [this] { answer(); });
        f_timer.start(5);
    }
    QStringList questions;

private:
    void answer()
    {
        QWidget *const asked = QApplication::activeModalWidget();
        if (auto *box = qobject_cast<QMessageBox *>(asked)) {
            questions.append(box->text());
            auto *button = box->findChild<QAbstractButton *>(QLatin1String(f_button));
            if (button)
                hand::click(button, button->rect().center());
            else
                hand::press(box, Qt::Key_Escape);
        } else if (qobject_cast<QFileDialog *>(asked) || qobject_cast<QInputDialog *>(asked)) {
            questions.append(asked->windowTitle());
            auto *edit = asked->findChild<QLineEdit *>();
            if (f_text.isEmpty())
                return hand::press(asked, Qt::Key_Escape);
            edit->setText(f_text);
            hand::press(edit, Qt::Key_Return);
        }
    }
    char const *f_button;
    QString f_text;
    QTimer f_timer;
};
} // namespace vx_test
