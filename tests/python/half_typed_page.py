# A page of varied Python, to be cut at every position. It is read, never run or imported.
from __future__ import annotations

import os.path as path, sys
from collections import (OrderedDict, defaultdict as made,
                         namedtuple)
from . import sibling
from ..package.module import *


@decorated
@path.join("a", *parts, key=lambda x, y=2: x[y])
class Größe(Base, metaclass=Meta, **options):
    """A text with 'quotes' and "more", a \\ and {braces}
    over several lines."""

    __slots__: tuple[str, ...] = ("_x", 'y')
    κόμβος: dict[str, list[int]] = {}

    async def method(self, first, /, second: int = 0x1F, *rest, third=1.5e-3, **more) -> None:
        async with opened(first) as handle, other:
            yield await handle.read(size=1_000)[::-1]
        nonlocal_value = [x for y in z if y for x in y.items() if not x]
        try:
            self.__private = f"{first!r:>{width}} {{literal}} {second['key']}" rf'\d{third}' b'\x00' B"raw"
        except (ValueError, KeyError) as error:
            raise RuntimeError("no" 'yes') from error
        finally:
            del self.items[0], self.other["k", 'v']
        return {**first, 'a': {1, 2, *rest}, 3: (4,), None: ()}


while (n := len(a)) > 10 and not b or c is not None:
	print(a[1:2, ..., -1], a['x']["y"], d[("a", 'b'
	    )], end='')  # a comment with 'quotes' and (brackets
	a.b .c. d ;e = 5 if x else lambda: 0
	break
else: pass

𝒙 = a @ b ** -c // d % e << 1 >> 2 & 3 | 4 ^ ~5
text = 'it\'s' "say \"when\"" '''three ' quotes''' """and " double""" r'\' ' u"\N{BULLET}"
total = a.T.dot(b).sum(axis=0).real + 'abc'.upper().strip()[0] + [1, 2].index(1) + {}.get(1, 2.) + (1.5).imag
match value:
    case {"key": [first, *_], **rest} if first: ...
    case Point(x=0, y=0) | None: x = y = 0
if x:\
    y
global z; assert x, "why"; import a.b.c as d, e
print(f'{x=} {y:{w}.{p}} {f"{nested}"} {d["k"]!s}', file=open('notes/todo.txt', 'w'))
%timeit np.linspace(0, 1, num=5)
!ls "$HOME"
