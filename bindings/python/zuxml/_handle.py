# SPDX-License-Identifier: Apache-2.0
"""What documents and parsers share: one release entry serves both kinds."""

from typing import Any, Optional

from ._library import is_loaded, library, open_handles


class Handle:
    """close() that may be called again, with blocks, and release at
    collection while the library is still loaded."""

    _handle: Optional[int] = None

    @property
    def closed(self) -> bool:
        return self._handle is None

    def close(self) -> None:
        """Releases the handle; calling it again does nothing."""
        if self._handle is not None:
            handle, self._handle = self._handle, None
            open_handles.discard(self)
            library().ZuXmlReleaseDocument(handle)
            self._released()

    def _released(self) -> None:
        pass

    def _register(self, handle: Optional[int], what: str) -> None:
        if not handle:
            raise MemoryError("cannot create " + what)
        self._handle = handle
        open_handles.add(self)

    def __enter__(self) -> Any:
        return self

    def __exit__(self, *exc: Any) -> None:
        self.close()

    def __del__(self) -> None:
        if self._handle is not None and is_loaded():
            self.close()
