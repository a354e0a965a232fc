#include "hosts/python/evaluation/expression_parser.h"

#include <algorithm>
#include <initializer_list>
#include <string>
#include <utility>

#include "hosts/python/evaluation/literals.h"
#include "hosts/python/evaluation/text_cursor.h"

namespace python_host {

namespace {

constexpr int depthLimit = 100;
constexpr std::size_t lengthLimit = 65'536;

bool isKeyword(std::string_view word) {
    constexpr std::string_view keywords[] = {"False",  "None",   "True",    "and",      "as",       "assert", "async",
                                             "await",  "break",  "class",   "continue", "def",      "del",    "elif",
                                             "else",   "except", "finally", "for",      "from",     "global", "if",
                                             "import", "in",     "is",      "lambda",   "nonlocal", "not",    "or",
                                             "pass",   "raise",  "return",  "try",      "while",    "with",   "yield"};
    return std::find(std::begin(keywords), std::end(keywords), word) != std::end(keywords);
}

/// Each reading function answers whether there was what it reads; if not, the whole text is refused.
class Parser {
public:
    explicit Parser(std::string_view text) noexcept : cursor_(text) {}

    bool readAll(Expression& expression) {
        skipBlanks();
        if (!readExpression(expression)) {
            return false;
        }
        cursor_.takeWhile([](char c) { return isBlank(c) || isLineEnd(c); });
        return cursor_.atEnd();
    }

private:
    static bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\f'; }
    static bool isLineEnd(char c) { return c == '\n' || c == '\r'; }

    /// Within brackets a line end is a blank.
    void skipBlanks() {
        cursor_.takeWhile([this](char c) { return isBlank(c) || (depth_ > 0 && isLineEnd(c)); });
    }

    bool readExpression(Expression& expression) {
        const char next = cursor_.peek();
        if (next == '-' || next == '+') {
            return readSigned(expression);
        }
        return readPrimary(expression) && readSteps(expression);
    }

    /// A sign belongs to a number here; it binds less tightly than what may follow the number, which is refused.
    bool readSigned(Expression& expression) {
        const bool isNegative = cursor_.take() == '-';
        skipBlanks();
        if (!readDigits(expression)) {
            return false;
        }
        if (isNegative) {
            expression.constant = Ref::steal(PyNumber_Negative(expression.constant.get()));
        }
        skipBlanks();
        return expression.constant && cursor_.peek() != '.' && cursor_.peek() != '[';
    }

    bool readPrimary(Expression& expression) {
        const char next = cursor_.peek();
        if (isNameStart(next)) {
            return readWord(expression);
        }
        switch (next) {
            case '\'':
            case '"':
                return readTexts(expression, {});
            case '(':
                return readParentheses(expression);
            case '[':
                expression.kind = Expression::Kind::list;
                return readBracketed(expression, ']', &Parser::readExpression);
            case '{':
                expression.kind = Expression::Kind::dictionary;
                return readBracketed(expression, '}', &Parser::readEntry);
            default:
                return readDigits(expression);
        }
    }

    bool readDigits(Expression& expression) {
        const bool isNumber =
            isDecimalDigit(cursor_.peek()) || (cursor_.peek() == '.' && isDecimalDigit(cursor_.peek(1)));
        expression.constant = isNumber ? readNumber(cursor_) : Ref();
        return static_cast<bool>(expression.constant);
    }

    bool readWord(Expression& expression) {
        const std::string_view word = cursor_.takeWhile(isNameByte);
        if (cursor_.peek() == '\'' || cursor_.peek() == '"') {
            return isTextPrefix(word) && readTexts(expression, word);
        }
        if (word == "None" || word == "True" || word == "False") {
            expression.constant = Ref::share(word == "None" ? Py_None : (word == "True" ? Py_True : Py_False));
            return true;
        }
        expression.kind = Expression::Kind::name;
        expression.name = word;
        return !isKeyword(word);
    }

    /// Texts that stand side by side are one. Each of them copies those before, so there are not many.
    bool readTexts(Expression& expression, std::string_view prefix) {
        constexpr int partLimit = 100;
        expression.constant = readText(cursor_, prefix);
        for (int part = 1; expression.constant && beginsText(); ++part) {
            if (part == partLimit) {
                return false;
            }
            const std::string_view nextPrefix = cursor_.takeWhile(isNameByte);
            const Ref next = readText(cursor_, nextPrefix);
            if (!next || Py_TYPE(next.get()) != Py_TYPE(expression.constant.get())) {
                return false;
            }
            expression.constant = Ref::steal(PySequence_Concat(expression.constant.get(), next.get()));
        }
        return static_cast<bool>(expression.constant);
    }

    bool beginsText() {
        skipBlanks();
        constexpr std::size_t longestPrefix = 2;
        for (std::size_t length = 0; length <= longestPrefix; ++length) {
            if (cursor_.peek(length) == '\'' || cursor_.peek(length) == '"') {
                return length == 0 || isTextPrefix(cursor_.rest().substr(0, length));
            }
        }
        return false;
    }

    /// A comma makes a tuple of it.
    bool readParentheses(Expression& expression) {
        bool hasComma = false;
        expression.kind = Expression::Kind::tuple;
        if (!readBracketed(expression, ')', &Parser::readExpression, &hasComma)) {
            return false;
        }
        if (expression.items.size() == 1 && !hasComma) {
            Expression only = std::move(expression.items.front());
            expression = std::move(only);
        }
        return true;
    }

    using Reader = bool (Parser::*)(Expression&);

    /// Elements between brackets, the first of which is next, into the items.
    bool readBracketed(Expression& holder, char closing, Reader readElement, bool* hasComma = nullptr) {
        if (depth_ == depthLimit) {
            return false;
        }
        ++depth_;
        cursor_.skip();
        skipBlanks();
        while (cursor_.peek() != closing) {
            if (!readElementInto(holder, readElement)) {
                return false;
            }
            skipBlanks();
            if (!cursor_.takeIf(',')) {
                break;
            }
            if (hasComma != nullptr) {
                *hasComma = true;
            }
            skipBlanks();
        }
        --depth_;
        return cursor_.takeIf(closing);
    }

    bool readElementInto(Expression& holder, Reader readElement) {
        if (readElement == &Parser::readEntry) {
            return readEntry(holder);
        }
        Expression element;
        if (!(this->*readElement)(element)) {
            return false;
        }
        holder.items.push_back(std::move(element));
        return true;
    }

    /// Of a dictionary: adds the key and the value.
    bool readEntry(Expression& dictionary) {
        Expression key;
        Expression value;
        if (!readExpression(key)) {
            return false;
        }
        skipBlanks();
        if (!cursor_.takeIf(':')) {
            return false;
        }
        skipBlanks();
        if (!readExpression(value)) {
            return false;
        }
        dictionary.items.push_back(std::move(key));
        dictionary.items.push_back(std::move(value));
        return true;
    }

    bool readSteps(Expression& expression) {
        while (true) {
            skipBlanks();
            if (cursor_.peek() == '[') {
                if (!readSubscript(expression)) {
                    return false;
                }
            } else if (cursor_.peek() == '.') {
                if (!readAttribute(expression)) {
                    return false;
                }
            } else {
                return true;
            }
        }
    }

    bool readAttribute(Expression& expression) {
        cursor_.skip();
        skipBlanks();
        const std::string_view name = isNameStart(cursor_.peek()) ? cursor_.takeWhile(isNameByte) : std::string_view();
        expression.steps.push_back({std::string(name), nullptr});
        return !name.empty() && !isKeyword(name);
    }

    bool readSubscript(Expression& expression) {
        auto subscript = std::make_unique<Expression>();
        bool hasComma = false;
        subscript->kind = Expression::Kind::tuple;
        if (!readBracketed(*subscript, ']', &Parser::readIndex, &hasComma) || subscript->items.empty()) {
            return false;
        }
        if (!hasComma) {
            subscript = std::make_unique<Expression>(std::move(subscript->items.front()));
        }
        expression.steps.push_back({{}, std::move(subscript)});
        return true;
    }

    /// An expression, or a slice, of which every part may be left out.
    bool readIndex(Expression& index) {
        Expression part;
        if (!readSlicePart(part)) {
            return false;
        }
        if (cursor_.peek() != ':') {
            index = std::move(part);
            return static_cast<bool>(index.constant) || index.kind != Expression::Kind::constant;
        }
        index.kind = Expression::Kind::slice;
        index.items.push_back(std::move(part));
        while (index.items.size() < 3 && cursor_.takeIf(':')) {
            Expression next;
            if (!readSlicePart(next)) {
                return false;
            }
            index.items.push_back(std::move(next));
        }
        return true;
    }

    /// A constant without a value when it is left out.
    bool readSlicePart(Expression& part) {
        skipBlanks();
        const char next = cursor_.peek();
        const bool isLeftOut = next == ':' || next == ']' || next == ',';
        const bool isRead = isLeftOut || readExpression(part);
        skipBlanks();
        return isRead;
    }

    TextCursor cursor_;
    int depth_ = 0;
};

}  // namespace

std::optional<Expression> parseExpression(std::string_view text) {
    Expression expression;
    if (text.size() > lengthLimit || !Parser(text).readAll(expression)) {
        PyErr_Clear();
        return std::nullopt;
    }
    return expression;
}

}  // namespace python_host
