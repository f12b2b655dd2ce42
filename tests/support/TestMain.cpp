#include "TestRegistry.h"

#include <QApplication>
#include <QTest>

namespace testsupport {
std::vector<TestFactory>& registeredTests()
{
    static std::vector<TestFactory> tests;
    return tests;
}
} // namespace testsupport

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    app.setAttribute(Qt::AA_Use96Dpi, true);
    int failed = 0;
    for (const auto& factory : testsupport::registeredTests()) {
        auto test = factory();
        failed += QTest::qExec(test.get(), argc, argv);
    }
    return failed == 0 ? 0 : 1;
}
