#include "TestRegistry.h"

#include "ui/ModelBinder.h"

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
    ModelBinder::setStrict(true);
    // TALAVEX_TEST_CLASS=TestChartSurface runs one class of the program (with its own options).
    const QByteArray only = qgetenv("TALAVEX_TEST_CLASS");
    int failed = 0;
    for (const auto& factory : testsupport::registeredTests()) {
        auto test = factory();
        if (!only.isEmpty() && only != test->metaObject()->className())
            continue;
        failed += QTest::qExec(test.get(), argc, argv);
    }
    return failed == 0 ? 0 : 1;
}
