#include "XMLReaderNavigation.h"

#include "XMLStrings.h"

#include <cstddef>

namespace {

const XMLNode *step(const XMLNode *current, std::string_view component)
{
    if (!current)
        return nullptr;
    if (!current->isArray())
        return current->find(component);
    const auto items = current->items();
    if (component == "last")
        return items.empty() ? nullptr : &items.back();
    const int32_t index = intValue(component);
    if (index < 0 || static_cast<std::size_t>(index) >= items.size())
        return nullptr;
    return &items[static_cast<std::size_t>(index)];
}

} // namespace

const XMLNode *retrieveForPath(const XMLNode &dictionary, std::string_view path)
{
    std::size_t dot = path.find('.');
    const XMLNode *current = dictionary.find(path.substr(0, dot));
    while (dot != std::string_view::npos) {
        const std::size_t start = dot + 1;
        dot = path.find('.', start);
        current =
            step(current, path.substr(start, dot == std::string_view::npos ? dot : dot - start));
    }
    return current;
}
