#include "QVAssertionHandler.h"

#include <QtGlobal>

#include <utility>

namespace {

QVAssertionHandler::Handler &currentHandler()
{
    static QVAssertionHandler::Handler handler;
    return handler;
}

} // namespace

QVAssertionHandler::Handler QVAssertionHandler::setCurrentHandler(Handler handler)
{
    return std::exchange(currentHandler(), std::move(handler));
}

void QVAssertionHandler::handleFailureInFunction(const char *function, const char *file, int line,
                                                 const QString &description)
{
    if (currentHandler()) {
        currentHandler()(function, file, line, description);
        return;
    }
    qt_assert_x(function, description.toUtf8().constData(), file, line);
}
