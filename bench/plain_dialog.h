#pragma once

#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>
#include <ctime>
#include <vector>

// Dialogs in plain Qt with its own layouts, which ours are measured against.

/// The processor's time of this process.
inline double processor_ms()
{
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) * 1e-6;
}

inline double median(std::vector<double> values)
{
    std::ranges::sort(values);
    return values[values.size() / 2];
}

/// Runs all in turn, some times without counting to warm up, and gives the median of what each gives.
template <class... Run>
std::vector<double> medians(int warm_up, int rounds, Run... run)
{
    std::vector<std::vector<double>> all(sizeof...(run));
    for (int i = -warm_up; i < rounds; ++i) {
        double const values[] = {run()...};
        for (std::size_t k = 0; i >= 0 && k < all.size(); ++k)
            all[k].push_back(values[k]);
    }
    std::vector<double> result;
    for (auto &values : all)
        result.push_back(median(std::move(values)));
    return result;
}

/// A row of a label and what is added at its right.
inline QHBoxLayout *add_row(QVBoxLayout *column, char const *caption)
{
    auto *area = new QWidget;
    column->addWidget(area);
    auto *row = new QHBoxLayout(area);
    row->setContentsMargins(6, 3, 6, 3);
    row->addWidget(new QLabel(QString::fromUtf8(caption)));
    row->addStretch();
    return row;
}

inline void add_button(QHBoxLayout *row)
{
    auto *button = new QPushButton(QStringLiteral("..."));
    button->setFixedWidth(20);
    row->addWidget(button);
}

inline void add_sample(QVBoxLayout *column, char const *caption)
{
    QHBoxLayout *row = add_row(column, caption);
    auto *frame = new QFrame;
    frame->setFrameShape(QFrame::Panel);
    frame->setFixedSize(20, 20);
    auto *sample = new QLabel(frame);
    QPixmap picture(18, 18);
    picture.fill(Qt::blue);
    sample->setPixmap(picture);
    row->addWidget(frame);
    add_button(row);
}

inline void add_number(QVBoxLayout *column, char const *caption)
{
    QHBoxLayout *row = add_row(column, caption);
    row->addWidget(new QLineEdit(QStringLiteral("2.00")));
    row->addWidget(new QLabel(QStringLiteral("mm")));
}

inline void add_glyphs(QHBoxLayout *row, int count)
{
    QPixmap glyph(16, 16);
    glyph.fill(Qt::gray);
    for (int i = 0; i < count; ++i) {
        auto *button = new QPushButton;
        button->setIcon(glyph);
        row->addWidget(button);
    }
}

/// The buttons at the bottom of a dialog, without the one for help.
inline void add_bottom(QVBoxLayout *column)
{
    auto *bottom = new QHBoxLayout;
    column->addLayout(bottom);
    bottom->addStretch();
    for (char const *caption : {"&Apply", "&Cancel", "&Help"}) {
        auto *button = new QPushButton(QString::fromUtf8(caption));
        button->setVisible(caption[1] != 'H');
        bottom->addWidget(button);
    }
}
