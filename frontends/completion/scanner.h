// From the start of a text to the cursor, token by token.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "frontends/completion/import_statement.h"
#include "frontends/completion/open_bracket.h"
#include "frontends/completion/parse.h"

namespace contextdata::completion {

/// Reads a text once. Knows of it what `parse` tells, and keeps nothing of what lies behind.
class Scanner {
public:
    /// `text` ends at the cursor.
    explicit Scanner(std::u16string_view text) : text_(text) {}

    ParsedText scan();

private:
    /// What the tokens read so far end in.
    enum class Tail {
        nothing,    ///< the start of a line, an operator, an opening bracket
        keyword,    ///< a word behind which a value begins
        name,       ///< a name that ends the operand
        dot,        ///< a dot behind the operand
        operand,    ///< an operand that ends in no name: a literal, a closing bracket
        number,     ///< a number literal
        numberDot,  ///< a number literal, a dot, and what follows that
        dangling,   ///< a dot with nothing before it, and what follows it
    };

    void step();
    void readName();
    void readWord(std::u16string_view word, std::size_t begin);
    void readDot();
    void readNumber();
    void readComment();
    void readString(std::size_t begin);
    void noteString(std::size_t begin);
    void readContent();
    std::size_t lengthInString() const;
    void readLineEnd();
    void readOpening(char16_t bracket);
    void readClosing(char16_t bracket);
    void readMark(char16_t mark);
    void readOperator(char16_t mark);
    bool readContinuation();
    bool isCallee() const;
    OpenBracket* innermost();

    ParsedText result();
    Refusal refusal() const;
    bool endsInFragment() const;
    bool endsInPlainName() const;
    const OpenBracket* subscriptOfKey() const;
    void wantInString(ParsedText& parsed);
    bool wantImport(ParsedText& parsed);
    void wantMembers(ParsedText& parsed);
    void wantArgument(ParsedText& parsed);
    void wantName(ParsedText& parsed);
    void wantWholeKey(ParsedText& parsed);
    void takeFragment(ParsedText& parsed, std::u16string_view fragment) const;
    void takeValueOf(ParsedText& parsed, const Operand& operand, std::size_t end) const;
    void takeKeysOf(ParsedText& parsed, const OpenBracket& subscript) const;

    /// Brackets within more brackets are told from each other no longer.
    static constexpr std::size_t deepestBracket = 1000;

    std::u16string_view text_;
    std::size_t position_ = 0;
    std::size_t dotPosition_ = 0;
    Tail tail_ = Tail::nothing;
    Refusal stop_ = Refusal::none;
    Operand operand_;
    /// The word before the chain, when nothing stands between the two.
    std::u16string_view wordBefore_;
    ImportStatement import_;
    std::vector<OpenBracket> brackets_;
    std::size_t deeperBrackets_ = 0;

    // The string that was read last, in which the cursor may stand.
    std::u16string_view prefix_;  ///< the letters before it
    std::size_t contentBegin_ = 0;
    char16_t quote_ = 0;
    bool isTriple_ = false;
    bool isWholeKey_ = false;  ///< with nothing before it in a subscript
};

}  // namespace contextdata::completion
