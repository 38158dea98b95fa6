#include "host/message.h"

#include "host/captions.h"

#include "platform/basic/vx_fault.h"

#include <QPushButton>

void vx_say(QWidget *parent, QMessageBox::Icon icon, QString const &text, QString const &details)
{
    vx_reason_print({text.toStdWString(), details.toStdWString()});
    QMessageBox box(icon, vx_host_caption(c_cap_application), text, QMessageBox::NoButton, parent);
    box.setTextFormat(Qt::PlainText);
    box.setDetailedText(details);
    box.setDefaultButton(box.addButton(vx_host_caption(c_cap_ok), QMessageBox::AcceptRole));
    box.exec();
}
