#pragma once

#include <QtGui/QValidator>

#include <algorithm>

class QLineEdit;

/// The most characters that a user may type or paste into a line. What is inserted beyond that is left out
/// from its end, never half a character. A text of the program may be longer; then the user can only shorten
/// it.
class vx_line_limit final : public QValidator
{
public:
    explicit vx_line_limit(QLineEdit *line);

    /// The limit that was put on a line; null if there is none.
    [[nodiscard]] static vx_line_limit *of(QLineEdit const *line);
    /// 0: none.
    void set(int characters) { f_limit = std::max(characters, 0); }
    [[nodiscard]] int get() const { return f_limit; }
    /// While true a text of any length passes.
    void set_open(bool open) { f_open = open; }

    State validate(QString &input, int &cursor) const override;

private:
    QLineEdit *f_line;
    int f_limit = 0;
    int f_length = 0; ///< of the text that was accepted last
    bool f_open = false;
};
