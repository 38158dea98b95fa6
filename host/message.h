#pragma once

#include <QMessageBox>
#include <QString>

class QWidget;

/// Tells the user something over `parent`. The details are shown when the user asks for them; text and
/// details stand on the error output too.
void vx_say(QWidget *parent, QMessageBox::Icon icon, QString const &text, QString const &details = {});
