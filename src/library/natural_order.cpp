// Natural order of names and cell texts. QCollator's numeric mode depends on
// the ICU build and the locale (the C locale has none), so the digit runs
// are compared here.
#include "library/natural_order.h"

#include <QLocale>

namespace {

int sign(qsizetype v)
{
    return v < 0 ? -1 : (v > 0 ? 1 : 0);
}

// The run of digits (or of non-digits) starting at `at`.
QStringView runAt(const QString& text, qsizetype at)
{
    const bool digits = text.at(at).isDigit();
    qsizetype end = at;
    while (end < text.size() && text.at(end).isDigit() == digits)
        ++end;
    return QStringView(text).mid(at, end - at);
}

int compareDigitRuns(QStringView a, QStringView b)
{
    while (a.size() > 1 && a.front() == QLatin1Char('0'))
        a = a.mid(1);
    while (b.size() > 1 && b.front() == QLatin1Char('0'))
        b = b.mid(1);
    if (a.size() != b.size())
        return a.size() < b.size() ? -1 : 1;
    return sign(a.compare(b));
}

} // namespace

int compareNaturally(const QString& a, const QString& b)
{
    qsizetype i = 0;
    qsizetype j = 0;
    while (i < a.size() && j < b.size()) {
        const QStringView x = runAt(a, i);
        const QStringView y = runAt(b, j);
        const bool xDigits = x.front().isDigit();
        const bool yDigits = y.front().isDigit();
        int c = 0;
        if (xDigits && yDigits)
            c = compareDigitRuns(x, y);
        else if (xDigits != yDigits)
            c = xDigits ? -1 : 1;
        else
            c = sign(x.compare(y, Qt::CaseInsensitive));
        if (c != 0)
            return c;
        i += x.size();
        j += y.size();
    }
    if (i < a.size() || j < b.size())
        return i < a.size() ? 1 : -1;
    return sign(a.compare(b, Qt::CaseSensitive));
}

int compareCellTexts(const QString& a, const QString& b)
{
    if (a.isEmpty() || b.isEmpty())
        return a.isEmpty() == b.isEmpty() ? 0 : (a.isEmpty() ? -1 : 1);
    bool numberA = false;
    bool numberB = false;
    const double x = QLocale::c().toDouble(a.trimmed(), &numberA);
    const double y = QLocale::c().toDouble(b.trimmed(), &numberB);
    if (numberA && numberB && x != y)
        return x < y ? -1 : 1;
    if (numberA != numberB)
        return numberA ? -1 : 1;
    return compareNaturally(a, b);
}
