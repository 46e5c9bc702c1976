#pragma once

#include <QElapsedTimer>
#include <QString>
#include <QTextStream>
#include <algorithm>
#include <type_traits>
#include <vector>

// Wall-clock times of one step over the repeats of a bench, in ms.
class Timings {
public:
    // Runs `step` once and keeps its time; returns what the step returned.
    template <typename Step>
    auto time(Step &&step)
    {
        QElapsedTimer t;
        t.start();
        if constexpr (std::is_void_v<std::invoke_result_t<Step>>) {
            step();
            keep(t);
        } else {
            auto result = step();
            keep(t);
            return result;
        }
    }
    double median() const
    {
        std::vector<double> s = m_ms;
        std::sort(s.begin(), s.end());
        const std::size_t n = s.size();
        return n == 0 ? 0 : n % 2 ? s[n / 2] : (s[n / 2 - 1] + s[n / 2]) / 2;
    }
    double max() const { return m_ms.empty() ? 0 : *std::max_element(m_ms.begin(), m_ms.end()); }

    // "<name>_ms: median ms" and "<name>_max_ms: max ms".
    void print(QTextStream &out, const QString &name) const
    {
        out << name << "_ms: " << QString::number(median(), 'f', 2) << " ms\n";
        out << name << "_max_ms: " << QString::number(max(), 'f', 2) << " ms\n";
    }

private:
    void keep(const QElapsedTimer &t) { m_ms.push_back(double(t.nsecsElapsed()) / 1e6); }

    std::vector<double> m_ms;
};
