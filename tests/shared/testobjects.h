#ifndef TESTOBJECTS_H
#define TESTOBJECTS_H

#include <QObject>
#include <memory>

/*
 * A test program of several files, each with a test object of its own. Every file ends with
 * TEST_OBJECT(its class); ${TEST_OBJECTS} among the program's sources brings the main function.
 *
 * The program takes the arguments of Qt Test; a test function that is named runs in the object
 * that has it.
 */
namespace testobjects {

using Maker = std::unique_ptr<QObject> (*)();

struct Registration
{
    Registration(const QMetaObject& type, Maker make);
};

} // namespace testobjects

#define TEST_OBJECT(Class)                                                                         \
    static const testobjects::Registration registration##Class(                                    \
        Class::staticMetaObject,                                                                   \
        []() -> std::unique_ptr<QObject> { return std::make_unique<Class>(); });

#endif
