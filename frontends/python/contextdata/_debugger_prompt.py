"""What Tab offers at pdb's prompt. The functions that stand in for pdb's own are called as those are: with the word
under the cursor, the line without the blanks that it begins with, and where in it the word begins and ends."""

import cmd
import re

from contextdata._native import complete
from contextdata._readline_words import words
from contextdata._stopped_debugger import holding

_FIRST_WORD = re.compile(r"([^\W\d]\w*)\s+")
_SEPARATOR = ";;"


def replacements(debugger_class):
    """What is to stand in pdb's class, by name."""
    evaluating = debugger_class._complete_expression
    # pdb has its function that evaluates under one name more for each command that takes an expression.
    return {name: expression for name, value in vars(debugger_class).items() if value is evaluating} | {
        "_complete_expression": expression_as_typed,
        "complete": next_match,
        "completedefault": expression,
        "completenames": command_or_expression,
    }


def next_match(debugger, word, state):
    """The match of a number for the word under the cursor, None when there are no more: what readline asks."""
    if state == 0:
        debugger.completion_matches = _matches(debugger, word)
    matches = debugger.completion_matches
    return matches[state] if state < len(matches) else None


def expression(debugger, word, line, begin, end):
    """What may stand for the word, which belongs to an expression, perhaps after a command."""
    # Before its first stop a debugger has no frame, nor the attribute.
    if getattr(debugger, "curframe", None) is None:
        return []
    skipped = _length_of_command(debugger, line, begin)
    text = line[skipped:end]
    if not text.strip():
        return _variables(debugger)
    # An exclamation mark belongs to the word.
    kept = line[begin:skipped]
    with holding(debugger):
        found = complete(text, ranked=True)
    return [kept + each for each in words(found, text, max(0, begin - skipped))]


def expression_as_typed(debugger, word, line, begin, end):
    """The same without what is forgiven: pdb adds names of files, and readline types what all have in common."""
    return [each for each in expression(debugger, word, line, begin, end) if each.startswith(word)]


def command_or_expression(debugger, word, line, begin, end):
    """What may stand for the first word of a line: pdb's commands, and once something is typed what it evaluates."""
    commands = cmd.Cmd.completenames(debugger, word)
    if not word:
        return commands
    evaluate = expression_as_typed if commands else expression
    return list(dict.fromkeys(commands + evaluate(debugger, word, line, begin, end)))


def _matches(debugger, word):
    import readline

    line = readline.get_line_buffer()
    # What follows a separator is a line of its own.
    separator = line.rfind(_SEPARATOR, 0, readline.get_begidx())
    start = 0 if separator < 0 else separator + len(_SEPARATOR)
    start += len(line[start:]) - len(line[start:].lstrip())
    begin, end = readline.get_begidx() - start, readline.get_endidx() - start
    return _function_for(debugger, line[start:], begin)(word, line[start:], begin, end)


def _function_for(debugger, line, begin):
    """What completes a word of the line: what belongs to the command that it begins with, if there is such a thing."""
    if begin <= 0:
        return debugger.completenames
    command = debugger.parseline(line)[0]
    return getattr(debugger, f"complete_{command}", debugger.completedefault) if command else debugger.completedefault


def _length_of_command(debugger, line, begin):
    """How much at the beginning of a line is for pdb and not for the language."""
    if line.startswith("!"):
        return 1
    first = _FIRST_WORD.match(line, 0, max(0, begin))
    is_command = first and (hasattr(debugger, f"do_{first[1]}") or first[1] in debugger.aliases)
    return first.end() if is_command else 0


def _variables(debugger):
    """The names of the variables of the frame in focus. They are taken from where pdb keeps them: asking the frame for
    its locals would undo what somebody assigned at the prompt."""
    scopes = (debugger.curframe_locals, debugger.curframe.f_globals)
    # A class body may have a mapping of its own; no method of it is called.
    names = {name for scope in scopes if issubclass(type(scope), dict) for name in dict.keys(scope)}
    return sorted(name for name in names if type(name) is str)
