#pragma once

#include <QObject>
#include <functional>
#include <memory>
#include <vector>

// Lets one test program per folder hold many QObject test classes: each file registers its
// classes with TALAVEX_TEST and the shared main runs them in turn.
namespace testsupport {

using TestFactory = std::function<std::unique_ptr<QObject>()>;

std::vector<TestFactory>& registeredTests();

struct TestRegistrar {
    explicit TestRegistrar(TestFactory factory) { registeredTests().push_back(std::move(factory)); }
};

} // namespace testsupport

#define TALAVEX_TEST(Class)                                                                        \
    static const testsupport::TestRegistrar registrar_##Class(                                     \
        [] { return std::unique_ptr<QObject>(new Class); });
