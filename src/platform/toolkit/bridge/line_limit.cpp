#include "platform/toolkit/bridge/detail/line_limit.h"

#include "platform/toolkit/bridge/qt_values.h"

#include <QtWidgets/QLineEdit>

vx_line_limit::vx_line_limit(QLineEdit *line) : QValidator(line), f_line(line)
{
    QObject::connect(line, &QLineEdit::textChanged, this,
                     [this](QString const &text) { f_length = vx_place(text, text.size()); });
    line->setValidator(this);
}

vx_line_limit *vx_line_limit::of(QLineEdit const *line)
{
    return const_cast<vx_line_limit *>(dynamic_cast<vx_line_limit const *>(line->validator()));
}

QValidator::State vx_line_limit::validate(QString &input, int &cursor) const
{
    int const limit = std::max(f_limit, f_length);
    int const surplus = vx_place(input, input.size()) - limit;
    if (f_open || f_limit == 0 || surplus <= 0)
        return Acceptable;
    int const end = vx_place(input, cursor);
    int const from = vx_qt_place(input, std::max(end - surplus, 0));
    input.remove(from, cursor - from);
    cursor = from;
    return Acceptable;
}
