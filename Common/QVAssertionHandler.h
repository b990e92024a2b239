#pragma once
// Where failed preconditions of the QVExtras functions are reported: the current handler is
// told the function's name, the file and line, and a description ("Invalid parameter not
// satisfying: binding != nil"). The default handler is Qt's assertion failure (qt_assert_x),
// which ends the program in every build; tests install one that records instead.

#include <QString>

#include <functional>

class QVAssertionHandler
{
public:
    using Handler = std::function<void(const char *function, const char *file, int line,
                                       const QString &description)>;

    // Installs a handler (an empty one restores the default) and returns the previous one.
    static Handler setCurrentHandler(Handler handler);

    static void handleFailureInFunction(const char *function, const char *file, int line,
                                        const QString &description);
};
