#include <qapplication.h>

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    // Listing the tests needs no screen.
    if (testing::GTEST_FLAG(list_tests))
        return RUN_ALL_TESTS();
    QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
