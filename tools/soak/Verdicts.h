#pragma once

#include <QString>

#include <vector>

namespace pevrix {

// What was demanded and what was seen, row by row. The number of a row is that of the list in
// docs/reliability.md.
class Verdicts
{
public:
    // Also prints the row, so that a run that is broken off has told what it knew.
    void add(int number, const QString& what, const QString& demanded, const QString& seen,
             bool held);

    // The rows of another one.
    void add(const Verdicts& others);

    // The whole table, in the order of the numbers. Whether every row held.
    [[nodiscard]] bool print() const;

private:
    struct Row
    {
        int number = 0;
        QString what;
        QString demanded;
        QString seen;
        bool held = false;
    };
    static void print(const Row& row);

    std::vector<Row> m_rows;
};

// A line of progress.
void say(const QString& text);

// The largest of the times so far, and how many there were.
struct Times
{
    std::vector<double> ms;

    [[nodiscard]] double worst() const;
    [[nodiscard]] double median() const;
    // "median 3.1 ms, worst 12.0 ms of 40"
    [[nodiscard]] QString text() const;
};

} // namespace pevrix
