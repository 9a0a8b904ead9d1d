#include "tests/shared/testobjects.h"

#include <QMetaMethod>
#include <QStringList>
#include <QTest>
#include <algorithm>
#include <cstdio>
#include <iterator>
#include <vector>

#ifdef QT_WIDGETS_LIB
#include <QApplication>
using Application = QApplication;
#else
#include <QCoreApplication>
using Application = QCoreApplication;
#endif

using testobjects::Maker;

namespace {

struct TestObject
{
    const QMetaObject* type;
    Maker make;
};

std::vector<TestObject>& objects()
{
    static std::vector<TestObject> all;
    return all;
}

bool isTestFunction(const QMetaMethod& method)
{
    const QByteArray name = method.name();
    return method.methodType() == QMetaMethod::Slot && method.access() == QMetaMethod::Private
           && method.parameterCount() == 0 && !name.endsWith("_data") && name != "init"
           && name != "cleanup" && name != "initTestCase" && name != "cleanupTestCase";
}

/* Qt Test ends the program after the list of one object. */
void printFunctions()
{
    for (const TestObject& object : objects())
        for (int i = 0; i < object.type->methodCount(); ++i)
            if (const QMetaMethod method = object.type->method(i); isTestFunction(method))
                std::printf("%s\n", method.methodSignature().constData());
}

/* Whether the argument names a test function of the object: "function" or "function:row". */
bool isNamed(const TestObject& object, const QString& argument)
{
    const QByteArray signature = argument.section(u':', 0, 0).toUtf8() + "()";
    return object.type->indexOfSlot(signature.constData()) >= 0;
}

/* Whether a test function that is asked for is one of this object's. */
bool isWanted(const TestObject& object, const QStringList& functions)
{
    return functions.isEmpty()
           || std::any_of(functions.begin(), functions.end(),
                          [&](const QString& function) { return isNamed(object, function); });
}

/* Runs one object after the other; returns how many test functions failed. */
int run(const QStringList& arguments)
{
    QStringList functions;
    QStringList options;
    for (const QString& argument : arguments) {
        const bool isFunction =
            std::any_of(objects().begin(), objects().end(),
                        [&](const TestObject& object) { return isNamed(object, argument); });
        (isFunction ? functions : options).append(argument);
    }
    int failures = objects().empty() ? 1 : 0;
    for (const TestObject& object : objects()) {
        if (!isWanted(object, functions))
            continue;
        QStringList own = options;
        std::copy_if(functions.begin(), functions.end(), std::back_inserter(own),
                     [&](const QString& function) { return isNamed(object, function); });
        failures += QTest::qExec(object.make().get(), own);
    }
    return std::min(failures, 127);
}

} // namespace

testobjects::Registration::Registration(const QMetaObject& type, Maker make)
{
    objects().push_back({&type, make});
}

int main(int argc, char** argv)
{
    Application application(argc, argv);
    Application::setAttribute(Qt::AA_Use96Dpi); // as QTEST_MAIN does
    const QStringList arguments = Application::arguments();
    if (arguments.contains(QStringLiteral("-functions"))) {
        printFunctions();
        return 0;
    }
    return run(arguments);
}
