#include "tools/soak/Verdicts.h"

#include <QElapsedTimer>

#include <algorithm>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace pevrix {

void say(const QString& text)
{
    static const auto clock = [] {
        QElapsedTimer started;
        started.start();
        return started;
    }();
    std::printf("soak: %5.0f s  %s\n", static_cast<double>(clock.elapsed()) / 1000,
                qPrintable(text));
    std::fflush(stdout);
}

void Verdicts::add(int number, const QString& what, const QString& demanded, const QString& seen,
                   bool held)
{
    m_rows.push_back({number, what, demanded, seen, held});
    say(u"R%1 %2: %3 (%4)%5"_s.arg(number).arg(what, seen, demanded,
                                               held ? QString() : u" NOT HELD"_s));
}

void Verdicts::add(const Verdicts& others)
{
    m_rows.insert(m_rows.end(), others.m_rows.begin(), others.m_rows.end());
}

void Verdicts::print(const Row& row)
{
    std::printf("| R%d | %s | %s | %s | %s |\n", row.number, qPrintable(row.what),
                qPrintable(row.demanded), qPrintable(row.seen), row.held ? "yes" : "NO");
}

bool Verdicts::print() const
{
    auto rows = m_rows;
    std::ranges::stable_sort(rows, {}, &Row::number);
    std::puts("\n| | what | demanded | seen | held |\n| --- | --- | --- | --- | --- |");
    for (const Row& row : rows) {
        print(row);
    }
    const auto broken = std::ranges::count(rows, false, &Row::held);
    std::printf("\n%zu rows, %td not held\n", rows.size(), broken);
    std::fflush(stdout);
    return broken == 0 && !rows.empty();
}

double Times::worst() const
{
    return ms.empty() ? 0 : *std::ranges::max_element(ms);
}

double Times::median() const
{
    if (ms.empty()) {
        return 0;
    }
    auto sorted = ms;
    std::ranges::sort(sorted);
    return sorted[sorted.size() / 2];
}

QString Times::text() const
{
    return u"median %1 ms, worst %2 ms of %3"_s.arg(median(), 0, 'f', 1)
        .arg(worst(), 0, 'f', 1)
        .arg(ms.size());
}

} // namespace pevrix
