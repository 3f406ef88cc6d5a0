#include "svg/xml/entities.h"

#include "values/scanner.h"

#include <map>
#include <string_view>

namespace qsdps::svg {
namespace {

constexpr int MaxNesting = 40;

struct Entity {
    std::string value;
    bool expanded = false;
    bool active = false;
};

using Entities = std::map<std::string, Entity, std::less<>>;

bool isNameEnd(char c)
{
    return isSpace(c) || c == '>' || c == '"' || c == '\'' || c == '\0';
}

/// Reads one declaration behind "<!ENTITY"; declarations of other files and of parameters are passed over.
void readDeclaration(Scanner& scanner, Entities& entities)
{
    scanner.skipSpace();
    std::string name;
    while (!isNameEnd(scanner.peek())) {
        name.push_back(scanner.peek());
        scanner.advance();
    }
    scanner.skipSpace();
    const char quote = scanner.peek();
    if (name != "%" && (quote == '"' || quote == '\'')) {
        scanner.advance();
        entities.try_emplace(name, Entity{std::string(scanner.upTo(quote))});
    }
    // Public and system identifiers are quoted and may hold a '>'.
    while (!scanner.atEnd() && scanner.peek() != '>') {
        const char c = scanner.peek();
        scanner.advance();
        if (c == '"' || c == '\'') {
            scanner.upTo(c);
        }
    }
    scanner.take('>');
}

/// The declarations of the internal subset; `bodyStart` is set behind the DOCTYPE.
Entities readSubset(std::string_view text, std::size_t& bodyStart)
{
    Entities entities;
    // Only a short prolog can stand before the DOCTYPE.
    const std::size_t doctype = text.find("<!DOCTYPE");
    if (doctype == text.npos || text.substr(0, doctype).find("<svg") != text.npos) {
        return entities;
    }
    Scanner scanner(text.substr(doctype));
    while (!scanner.atEnd() && scanner.peek() != '[' && scanner.peek() != '>') {
        const char c = scanner.peek();
        scanner.advance();
        if (c == '"' || c == '\'') {
            scanner.upTo(c);
        }
    }
    if (!scanner.take('[')) {
        return entities;
    }
    while (!scanner.atEnd() && scanner.peek() != ']') {
        const std::string_view rest = scanner.rest();
        constexpr std::string_view EntityDeclaration = "<!ENTITY";
        if (rest.starts_with("<!--")) {
            const std::size_t end = rest.find("-->");
            scanner = Scanner(end == rest.npos ? std::string_view() : rest.substr(end + 3));
        } else if (rest.starts_with(EntityDeclaration)) {
            scanner = Scanner(rest.substr(EntityDeclaration.size()));
            readDeclaration(scanner, entities);
        } else {
            scanner.advance();
        }
    }
    bodyStart = text.size() - scanner.rest().size();
    return entities;
}

class Expander {
public:
    Expander(Entities& entities, std::size_t limit) : _entities(entities), _left(limit) {}

    /// Appends `text` with its references replaced.
    bool append(std::string& out, std::string_view text, int nesting)
    {
        while (!text.empty()) {
            const std::size_t mark = text.find('&');
            out.append(text.substr(0, mark));
            if (mark == text.npos) {
                break;
            }
            text.remove_prefix(mark);
            const std::size_t end = text.substr(0, 256).find(';');
            const auto found = end == text.npos ? _entities.end() : _entities.find(text.substr(1, end - 1));
            if (found == _entities.end()) {
                out.push_back('&');
                text.remove_prefix(1);
                continue;
            }
            if (!expand(found->second, nesting) || !spend(found->second.value.size())) {
                return false;
            }
            out.append(found->second.value);
            text.remove_prefix(end + 1);
        }
        return true;
    }

private:
    bool expand(Entity& entity, int nesting)
    {
        if (entity.expanded) {
            return true;
        }
        if (entity.active || nesting >= MaxNesting) {
            return false;
        }
        entity.active = true;
        std::string value;
        if (!append(value, entity.value, nesting + 1)) {
            return false;
        }
        entity.value = std::move(value);
        entity.expanded = true;
        entity.active = false;
        return true;
    }

    bool spend(std::size_t size)
    {
        if (size > _left) {
            return false;
        }
        _left -= size;
        return true;
    }

    Entities& _entities;
    std::size_t _left;
};

} // namespace

Result<std::string> expandEntities(std::string text, std::size_t limit)
{
    std::size_t bodyStart = 0;
    Entities entities = readSubset(text, bodyStart);
    if (entities.empty()) {
        return text;
    }
    std::string out = text.substr(0, bodyStart);
    Expander expander(entities, limit);
    if (!expander.append(out, std::string_view(text).substr(bodyStart), 0)) {
        return Error{"entities refer to themselves or expand to too much text"};
    }
    return out;
}

} // namespace qsdps::svg
