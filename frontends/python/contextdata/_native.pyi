from collections.abc import Sequence
from typing import Any, NamedTuple, final

class Completion(NamedTuple):
    """One name that may follow a text, with its kind and its class."""

    name: str
    kind: str
    definer: str | None

@final
class Completions(Sequence[Completion]):
    """The names that may follow a text: an immutable sequence of Completion."""

    @property
    def start(self) -> int: ...
    @property
    def end(self) -> int: ...
    def __getitem__(self, index: Any, /) -> Any: ...
    def __len__(self) -> int: ...

most_kept_listings: int

def complete(
    text: str,
    cursor: int | None = None,
    namespace: dict[str, Any] | None = None,
    *,
    inside: str | type | None = None,
) -> Completions: ...
def members(object: object, /) -> list[Completion]: ...
def describe(
    subject: object, namespace: dict[str, Any] | None, hidden: bool
) -> tuple[str | None, str | None, tuple[Any, ...], tuple[Any, ...]]: ...
def explain(text: str, namespace: dict[str, Any]) -> tuple[str, list[str], int]: ...
def set_stopped_debugger(debugger: object | None) -> None: ...
def kept_listings() -> int: ...
def forget_listings() -> None: ...
