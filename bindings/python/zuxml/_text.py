# SPDX-License-Identifier: Apache-2.0
"""Wide text in and out: str to UTF-16 units, and the caller-buffer protocol
run for the caller (ask with a buffer, grow it to the length the library
reports, ask again)."""

import ctypes
import os
from typing import Any, Callable, Optional, Union

from ._prototypes import WSTR

Text = Union[str, "os.PathLike[str]", "os.PathLike[bytes]", bytes]


def wide(text: Optional[Text]) -> Optional["ctypes.Array[ctypes.c_uint16]"]:
    """str (or a path) -> zero-terminated array of UTF-16 units; None stays None."""
    if text is None:
        return None
    if not isinstance(text, str):
        text = os.fspath(text)
        if isinstance(text, bytes):
            text = os.fsdecode(text)
    data = text.encode("utf-16-le", "surrogatepass")
    units = (ctypes.c_uint16 * (len(data) // 2 + 1))()
    ctypes.memmove(units, data, len(data))
    return units


def _units_to_str(pointer: Any, count: int) -> str:
    return ctypes.string_at(pointer, 2 * count).decode("utf-16-le", "surrogatepass")


def from_wide(pointer: Any) -> Optional[str]:
    """Zero-terminated UTF-16 text at a pointer -> str (NULL -> None)."""
    if not pointer:
        return None
    units = ctypes.cast(pointer, WSTR)
    count = 0
    while units[count]:
        count += 1
    return _units_to_str(units, count)


def buffer_to_str(buffer: "ctypes.Array[ctypes.c_uint16]") -> str:
    """The zero-terminated text of a filled buffer of UTF-16 units."""
    return _units_to_str(buffer, buffer[:].index(0))


# A first buffer that holds most names and values; longer text is fetched again.
FIRST_CAPACITY = 256


def read_text(getter: Callable[..., int], *args: Any) -> Optional[str]:
    """Text from a wide getter under the caller-buffer protocol, or None.

    The getter answers 0 and reports the length it needs (text plus
    terminator) when the buffer is too small, and leaves the length alone
    when it fails; so a length that grew means "retry with that many".
    """
    capacity = FIRST_CAPACITY
    while True:
        buffer = (ctypes.c_uint16 * capacity)()
        length = ctypes.c_int32(capacity)
        if getter(*args, buffer, ctypes.byref(length)) == 1:
            return buffer_to_str(buffer)
        if length.value <= capacity:
            return None
        capacity = length.value
