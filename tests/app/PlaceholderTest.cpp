#include <gtest/gtest.h>
TEST(AppPlaceholder, Builds) { SUCCEED(); }
