"""From names that may follow a text to the words that readline puts in place of the one under the cursor."""

import os.path


def words(found, line, begin):
    """What may stand for the word that begins at `begin`, the last one of the line; `found` are the names that may
    follow the line. Readline types what all words have in common, so nothing is offered that would take away what
    somebody typed."""
    typed = line[begin:]
    before = line[found.start : begin]
    # A key may begin before the word, which ends at blanks and quotes; a member after it, as dots belong to the word.
    kept = line[begin : found.start]
    whole = [kept + each.name[len(before) :] for each in found if each.name.startswith(before)]
    exact = [word for word in whole if word.startswith(typed)]
    if exact or len(os.path.commonprefix(whole)) < len(typed):
        return exact
    return whole
