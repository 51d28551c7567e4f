// Only debug builds have the time trial, so the driver is compiled again without NDEBUG under another name.
#undef NDEBUG
#define MD5Driver DebugMd5Driver
#include "Lib/Md5Driver.cpp"
#undef MD5Driver

#include <gtest/gtest.h>

#include "RecordedCalls.h"

TEST(Md5, PrintsTheSpeedOfTheTimeTrial) {
    RecordedCalls calls;
    calls.Record("_time64", _time64, [now = 1000](__time64_t*) mutable { return now += 10; });
    testing::internal::CaptureStdout();
    DebugMd5Driver::MDTimeTrial();
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "MD5 time trial. Digesting 1000 1000-byte blocks ... done\nDigest = f217fb0b8599c956eaeb81611e7a8758\n"
              "Time = 10 seconds\nSpeed = 100000 bytes/second\n");
    EXPECT_EQ(calls.Take(), "_time64 null\n_time64 null\n");
}
