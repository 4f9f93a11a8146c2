// Calls tests/reference/filter_reference.py for the FIR designer's checks.
#pragma once

#include "support/reference_python.h"

#include <gtest/gtest.h>

#include <QStringList>

#include <span>
#include <string>
#include <vector>

namespace filterref {

// Numbers printed by the script, or an empty vector after a test failure.
inline std::vector<double> run(const QStringList& args, std::span<const double> input = {})
{
    QString error;
    const auto out =
        reference::runPython(QStringLiteral("filter_reference.py"), args, reference::numbersLine(input), &error);
    EXPECT_TRUE(out) << error.toStdString();
    return out ? reference::parseNumbers(*out) : std::vector<double>{};
}

} // namespace filterref
