// Runs a check once for each Highway target (instruction set) that the
// kernels were built for and this processor runs, the dispatch pinned to it.
#pragma once

#include <gtest/gtest.h>
#include <hwy/targets.h>

#include <cstdint>

template <class Check> void forEachVectorTarget(Check&& check)
{
    for (const std::int64_t target : hwy::SupportedAndGeneratedTargets()) {
        hwy::SetSupportedTargetsForTest(target);
        SCOPED_TRACE(hwy::TargetName(target));
        check(target);
    }
    hwy::SetSupportedTargetsForTest(0);
}
