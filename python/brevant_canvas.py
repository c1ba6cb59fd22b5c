"""Canvas from Python: every class of the library by member name, host objects as plain Python classes.

    import brevant_canvas as bc

    document = bc.create("clsBVTCanvas")
    document.Readfile("homing.bpg")
    findings = bc.Ref("")
    if not document.CheckConnection(findings):
        print(findings.value)

Needs nothing but this file and the shared library, which is looked for at $BREVANT_CANVAS, in the registration that the
library's DllRegisterServer wrote, and beside this file, in this order; `load` names one outright.

Values: True and False, int (32 bits), float, str, None for Nothing or no result, `Null`, `Empty`, Object for an object of
the library, and a list (of lists) for an array. Any other Python object goes in as a host object: its attributes are
found by name without regard to case, its `__iter__` is what the library walks, and what it raises reaches the library as
a run-time error. Arguments by reference, in both directions, are `Ref`.

Everything runs on one thread, the one that called first.
"""

from __future__ import annotations

import ctypes
import itertools
import json
import os
import pathlib
import uuid
from collections.abc import Callable, Iterable, Iterator
from typing import Any

__all__ = ["Collection", "Connection", "Empty", "Error", "Null", "Object", "Ref", "RunTimeError", "can_unload",
           "connect", "create", "load", "register", "unload", "unregister"]


# Values

class _Constant:
    def __init__(self, name: str) -> None:
        self._name = name

    def __repr__(self) -> str:
        return self._name

    def __bool__(self) -> bool:
        return False


Null = _Constant("Null")
"""The value that is known to be none; not None, which is Nothing."""
Empty = _Constant("Empty")
"""A variable that nothing was put into."""


class Ref:
    """An argument by reference: what the callee leaves there is in `value`."""

    def __init__(self, value: Any = None) -> None:
        self.value = value

    def __repr__(self) -> str:
        return f"Ref({self.value!r})"


class Error(Exception):
    """A call that never reached its member: `code` is the result code, such as 0x80020006 for an unknown name."""

    def __init__(self, code: int, text: str) -> None:
        super().__init__(f"{text} (0x{code & 0xFFFFFFFF:08X})")
        self.code = code & 0xFFFFFFFF


class RunTimeError(Exception):
    """A run-time error: raised by the library, and by host objects that want to tell the library a number."""

    def __init__(self, number: int, source: str = "", description: str = "") -> None:
        super().__init__(number, source, description)
        self.number = number
        self.source = source
        self.description = description

    def __str__(self) -> str:
        return f"[{self.number}] {self.description}"


class Collection:
    """A host collection: walked in order, with `Count` and `Item` by place from 1 or by key.

    `items` are the values; `keys`, where given, stand beside them and match without regard to case.
    """

    def __init__(self, items: Iterable[Any] = (), keys: Iterable[str] | None = None) -> None:
        self.items = list(items)
        self.keys = [key.lower() for key in keys] if keys is not None else []

    def __iter__(self) -> Iterator[Any]:
        return iter(self.items)

    @property
    def Count(self) -> int:
        """How many values there are."""
        return len(self.items)

    def Item(self, index: int | float | str) -> Any:
        """The value at a place from 1, or under a key. Run-time error 9 for an absent place, 5 for an absent key."""
        if isinstance(index, str):
            if index.lower() not in self.keys:
                raise RunTimeError(5, "", "Invalid procedure call or argument")
            return self.items[self.keys.index(index.lower())]
        if not 1 <= round(index) <= len(self.items):
            raise RunTimeError(9, "", "Subscript out of range")
        return self.items[round(index) - 1]

    def Add(self, item: Any, key: str | None = None) -> None:
        """Puts a value at the end."""
        if key is not None:
            self.keys += [""] * (len(self.items) - len(self.keys)) + [key.lower()]
        self.items.append(item)


# Structures, as on 64-bit Windows

class _Guid(ctypes.Structure):
    _fields_ = [("bytes", ctypes.c_ubyte * 16)]

    @classmethod
    def of(cls, identifier: uuid.UUID) -> _Guid:
        return cls((ctypes.c_ubyte * 16)(*identifier.bytes_le))


class _Variant(ctypes.Structure):
    class _Content(ctypes.Union):
        _fields_ = [("short", ctypes.c_int16), ("long", ctypes.c_int32), ("byte", ctypes.c_uint8),
                    ("longlong", ctypes.c_int64), ("single", ctypes.c_float), ("double", ctypes.c_double),
                    ("pointer", ctypes.c_void_p), ("pair", ctypes.c_void_p * 2)]

    _anonymous_ = ("content",)
    _fields_ = [("vt", ctypes.c_uint16), ("reserved", ctypes.c_uint16 * 3), ("content", _Content)]


class _Parameters(ctypes.Structure):
    _fields_ = [("arguments", ctypes.POINTER(_Variant)), ("names", ctypes.POINTER(ctypes.c_int32)),
                ("count", ctypes.c_uint32), ("named", ctypes.c_uint32)]


class _Exception(ctypes.Structure):
    _fields_ = [("code", ctypes.c_uint16), ("reserved", ctypes.c_uint16), ("source", ctypes.c_void_p),
                ("description", ctypes.c_void_p), ("help_file", ctypes.c_void_p), ("help_context", ctypes.c_uint32),
                ("pointer", ctypes.c_void_p), ("deferred", ctypes.c_void_p), ("scode", ctypes.c_int32)]


class _Bound(ctypes.Structure):
    _fields_ = [("count", ctypes.c_uint32), ("lower", ctypes.c_int32)]


_EMPTY, _NULL, _I2, _I4, _R4, _R8, _CY, _DATE, _BSTR, _DISPATCH, _ERROR, _BOOL, _VARIANT, _UNKNOWN = range(14)
_UI1, _I8, _ARRAY, _BYREF = 17, 20, 0x2000, 0x4000
_METHOD, _GET, _PUT, _PUTREF = 1, 2, 4, 8
_VALUE, _PROPERTYPUT, _NEWENUM = 0, -3, -4
_CAN_GET, _CAN_CALL = 1, 0x100

_S_OK, _S_FALSE = 0, 1
_E_NOTIMPL, _E_NOINTERFACE, _E_POINTER, _E_FAIL = 0x80004001, 0x80004002, 0x80004003, 0x80004005
_MEMBERNOTFOUND, _UNKNOWNNAME, _TYPEMISMATCH, _EXCEPTION = 0x80020003, 0x80020006, 0x80020005, 0x80020009
_BADPARAMCOUNT, _PARAMNOTFOUND = 0x8002000E, 0x80020004
_TEXTS = {
    _MEMBERNOTFOUND: "no such member", _UNKNOWNNAME: "unknown name", _TYPEMISMATCH: "type mismatch",
    0x8002000A: "overflow", _BADPARAMCOUNT: "wrong number of arguments", 0x8002000F: "an argument is missing",
    0x80040111: "no such class", _E_NOINTERFACE: "no such interface",
}
_ERROR_FACILITY = 0x800A0000


def _signed(code: int) -> int:
    return code - 0x100000000 if code > 0x7FFFFFFF else code


def _automation_id(first: int) -> uuid.UUID:
    return uuid.UUID(f"{first:08x}-0000-0000-c000-000000000046")


_IID_UNKNOWN, _IID_FACTORY = _automation_id(0), _automation_id(1)
_IID_DISPATCH, _IID_ENUM = _automation_id(0x20400), _automation_id(0x20404)
_IID_DISPATCHEX = uuid.UUID("a6ef9860-c720-11d0-9337-00a0c90dcaa9")
_IID_CONTAINER = uuid.UUID("b196b284-bab4-101a-b69c-00aa00341d07")
_BASE = uuid.uuid5(uuid.NAMESPACE_URL, "urn:brevant:canvas")
_EVENTS = uuid.uuid5(_BASE, "events:clsBVTCanvas")

_P, _I32, _U32, _U16 = ctypes.c_void_p, ctypes.c_int32, ctypes.c_uint32, ctypes.c_uint16


class _Function:
    """A function at a place of an interface's table."""

    def __init__(self, place: int, *arguments: Any) -> None:
        self._place = place
        self._prototype = ctypes.CFUNCTYPE(_I32, _P, *arguments)

    def __call__(self, interface: int, *arguments: Any) -> int:
        table = ctypes.cast(interface, ctypes.POINTER(_P))[0]
        address = ctypes.cast(table, ctypes.POINTER(_P))[self._place]
        return int(self._prototype(address)(interface, *arguments)) & 0xFFFFFFFF


_query_interface = _Function(0, ctypes.POINTER(_Guid), ctypes.POINTER(_P))
_add_ref = _Function(1)
_release = _Function(2)
_invoke = _Function(6, _I32, ctypes.POINTER(_Guid), _U32, _U16, ctypes.POINTER(_Parameters), ctypes.POINTER(_Variant),
                    ctypes.POINTER(_Exception), ctypes.POINTER(_U32))
_get_disp_id = _Function(7, _P, _U32, ctypes.POINTER(_I32))
_member_properties = _Function(11, _I32, _U32, ctypes.POINTER(_U32))
_member_name = _Function(12, _I32, ctypes.POINTER(_P))
_next_disp_id = _Function(13, _U32, _I32, ctypes.POINTER(_I32))
_create_instance = _Function(3, _P, ctypes.POINTER(_Guid), ctypes.POINTER(_P))
_enum_next = _Function(3, _U32, ctypes.POINTER(_Variant), ctypes.POINTER(_U32))
_find_connection_point = _Function(4, ctypes.POINTER(_Guid), ctypes.POINTER(_P))
_advise = _Function(5, _P, ctypes.POINTER(_U32))
_unadvise = _Function(6, _U32)
_NO_ID = _Guid()


# The library

_library: ctypes.CDLL | None = None


def _prepared(path: str) -> ctypes.CDLL:
    library = ctypes.CDLL(path)
    library.SysAllocStringLen.restype = _P
    library.SysAllocStringLen.argtypes = [ctypes.c_char_p, _U32]
    library.SysFreeString.argtypes = [_P]
    library.SysStringLen.argtypes = [_P]
    library.VariantClear.argtypes = [ctypes.POINTER(_Variant)]
    library.VariantCopy.argtypes = [ctypes.POINTER(_Variant), ctypes.POINTER(_Variant)]
    library.SafeArrayCreate.restype = _P
    library.SafeArrayCreate.argtypes = [_U16, _U32, ctypes.POINTER(_Bound)]
    library.SafeArrayGetElement.argtypes = [_P, ctypes.POINTER(_I32), _P]
    library.SafeArrayPutElement.argtypes = [_P, ctypes.POINTER(_I32), _P]
    library.SafeArrayGetLBound.argtypes = [_P, _U32, ctypes.POINTER(_I32)]
    library.SafeArrayGetUBound.argtypes = [_P, _U32, ctypes.POINTER(_I32)]
    library.SafeArrayGetDim.argtypes = [_P]
    library.DllGetClassObject.argtypes = [ctypes.POINTER(_Guid), ctypes.POINTER(_Guid), ctypes.POINTER(_P)]
    return library


def _registration() -> str | None:
    folder = os.environ.get("XDG_DATA_HOME", "")
    base = pathlib.Path(folder) if os.path.isabs(folder) else pathlib.Path.home() / ".local/share"
    try:
        return str(json.loads((base / "brevant/components/Canvas.json").read_text(encoding="utf-8"))["path"])
    except (OSError, ValueError, KeyError):
        return None


def load(path: str | os.PathLike[str] | None = None) -> None:
    """Loads the shared library; without a path from where the module's own text says. Called by `create` when needed.

    Does nothing when one is loaded already. OSError when there is none.
    """
    global _library
    if _library is not None:
        return
    beside = pathlib.Path(__file__).resolve().with_name("libCanvas.so")
    found = path or os.environ.get("BREVANT_CANVAS") or _registration() or beside
    _library = _prepared(os.fspath(found))


def _lib() -> ctypes.CDLL:
    load()
    assert _library is not None
    return _library


def can_unload() -> bool:
    """True when nothing of the library is held any more."""
    return _library is None or _library.DllCanUnloadNow() == _S_OK


def unload() -> None:
    """Takes the library out of the process; RuntimeError while something of it is held."""
    global _library
    if _library is None:
        return
    if not can_unload():
        raise RuntimeError("objects of the library are still held")
    close = ctypes.CDLL(None).dlclose
    close.argtypes = [_P]
    close(_library._handle)
    _library = None


def register() -> None:
    """Writes the registration, so that hosts of this user find the library."""
    _check(_lib().DllRegisterServer() & 0xFFFFFFFF)


def unregister() -> None:
    """Takes the registration away."""
    _check(_lib().DllUnregisterServer() & 0xFFFFFFFF)


def _check(result: int) -> None:
    if result > 0x7FFFFFFF:
        raise Error(result, _TEXTS.get(result, "the call failed"))


# Between Python and VARIANT

def _bstr(text: str) -> int:
    encoded = text.encode("utf-16-le", "surrogatepass")
    made = _lib().SysAllocStringLen(encoded, len(encoded) // 2)
    if not made:
        raise MemoryError
    return int(made)


def _text(bstr: int | None) -> str:
    if not bstr:
        return ""
    return ctypes.string_at(bstr, _lib().SysStringLen(bstr) * 2).decode("utf-16-le", "replace")


def _taken_text(bstr: int | None) -> str:
    text = _text(bstr)
    if bstr:
        _lib().SysFreeString(bstr)
    return text


def _shape(value: list[Any] | tuple[Any, ...]) -> list[int]:
    lengths = [len(value)]
    inner = value[0] if value else None
    if isinstance(inner, (list, tuple)) and all(isinstance(v, (list, tuple)) and len(v) == len(inner) for v in value):
        lengths += _shape(inner)
    return lengths


def _safe_array(value: list[Any] | tuple[Any, ...]) -> int:
    lengths = _shape(value)
    bounds = (_Bound * len(lengths))(*[_Bound(length, 0) for length in lengths])
    array = _lib().SafeArrayCreate(_VARIANT, len(lengths), bounds)
    if not array:
        raise MemoryError
    for place in itertools.product(*[range(length) for length in lengths]):
        item: Any = value
        for index in place:
            item = item[index]
        with _Owned(item) as element:
            _lib().SafeArrayPutElement(array, (_I32 * len(place))(*place), ctypes.byref(element))
    return int(array)


def _list_from(array: int | None, kind: int) -> list[Any]:
    if not array:
        return []
    dimensions = _lib().SafeArrayGetDim(array)
    ranges = []
    for dimension in range(1, dimensions + 1):
        lower, upper = _I32(), _I32()
        _lib().SafeArrayGetLBound(array, dimension, ctypes.byref(lower))
        _lib().SafeArrayGetUBound(array, dimension, ctypes.byref(upper))
        ranges.append(range(lower.value, upper.value + 1))

    def part(place: tuple[int, ...]) -> Any:
        if len(place) < dimensions:
            return [part((*place, index)) for index in ranges[len(place)]]
        element = _Variant()
        target = ctypes.byref(element) if kind == _VARIANT else ctypes.byref(element, 8)
        element.vt = _EMPTY if kind == _VARIANT else kind
        _lib().SafeArrayGetElement(array, (_I32 * dimensions)(*place), target)
        return _taken(element)

    whole: list[Any] = part(())
    return whole


def _give(value: Any, variant: _Variant) -> None:
    """Into a variant that owns nothing."""
    if value is None:
        variant.pointer, variant.vt = None, _DISPATCH
    elif value is Empty:
        variant.vt = _EMPTY
    elif value is Null:
        variant.vt = _NULL
    elif isinstance(value, bool):
        variant.short, variant.vt = -1 if value else 0, _BOOL
    elif isinstance(value, int):
        if -0x80000000 <= value <= 0x7FFFFFFF:
            variant.long, variant.vt = value, _I4
        else:
            variant.double, variant.vt = float(value), _R8
    elif isinstance(value, float):
        variant.double, variant.vt = value, _R8
    elif isinstance(value, str):
        variant.pointer, variant.vt = _bstr(value), _BSTR
    elif isinstance(value, (list, tuple)):
        variant.pointer, variant.vt = _safe_array(value), _ARRAY | _VARIANT
    else:
        variant.pointer, variant.vt = _dispatch_of(value), _DISPATCH


def _value(variant: _Variant) -> Any:
    """What a variant holds, which stays the variant's own."""
    vt = variant.vt
    if vt & _BYREF:
        inner = _Variant()
        kind = vt & ~_BYREF
        if kind == _VARIANT:
            return _value(_Variant.from_address(variant.pointer))
        inner.vt = kind
        ctypes.memmove(ctypes.byref(inner, 8), variant.pointer, _SIZES.get(kind, 8))
        return _value(inner)
    if vt & _ARRAY:
        return _list_from(variant.pointer, vt & 0xFFF)
    if vt in (_DISPATCH, _UNKNOWN):
        return _object_behind(variant.pointer) if vt == _DISPATCH else None
    return _READ.get(vt, lambda v: None)(variant)


_READ: dict[int, Callable[[_Variant], Any]] = {
    _NULL: lambda v: Null, _I2: lambda v: v.short, _I4: lambda v: v.long, 22: lambda v: v.long, _R4: lambda v: v.single,
    _R8: lambda v: v.double, _DATE: lambda v: v.double, _CY: lambda v: v.longlong / 10000, _BSTR: lambda v: _text(v.pointer),
    _BOOL: lambda v: v.short != 0, _UI1: lambda v: v.byte, _I8: lambda v: v.longlong,
}
_SIZES = {_I2: 2, _BOOL: 2, _I4: 4, _R4: 4, 22: 4, _UI1: 1}


def _taken(variant: _Variant) -> Any:
    """What a variant holds; what it owned is freed."""
    try:
        return _value(variant)
    finally:
        _lib().VariantClear(ctypes.byref(variant))


class _Owned:
    """A variant for the time of a block."""

    def __init__(self, value: Any) -> None:
        self._variant = _Variant()
        _give(value, self._variant)

    def __enter__(self) -> _Variant:
        return self._variant

    def __exit__(self, *_: object) -> None:
        _lib().VariantClear(ctypes.byref(self._variant))


def _put_through(reference: _Variant, value: Any) -> None:
    """Writes through a variant that holds a reference."""
    kind = reference.vt & ~_BYREF
    if kind == _VARIANT:
        target = _Variant.from_address(reference.pointer)
        _lib().VariantClear(ctypes.byref(target))
        _give(value, target)
    elif kind == _BOOL:
        ctypes.c_int16.from_address(reference.pointer).value = -1 if value else 0


# Objects of the library

def _left(out: ctypes.c_void_p) -> int:
    """The interface that a call which succeeded left in an out parameter."""
    assert out.value is not None
    return out.value


def _asked(interface: int, identifier: uuid.UUID) -> int | None:
    answer = _P()
    if _query_interface(interface, ctypes.byref(_Guid.of(identifier)), ctypes.byref(answer)) != _S_OK:
        return None
    return answer.value


class Object:
    """An object of the library. Members are attributes, case ignored; calling the object, or indexing it, reaches its
    default member, and a collection can be walked."""

    __slots__ = ("__weakref__", "_ids", "_pointer")
    _pointer: int
    _ids: dict[str, tuple[int, int]]

    def __init__(self, pointer: int) -> None:
        """Takes over one reference of an IDispatchEx."""
        object.__setattr__(self, "_pointer", pointer)
        object.__setattr__(self, "_ids", {})

    def __del__(self) -> None:
        if _library is not None and _release is not None:
            _release(self._pointer)

    def _member(self, name: str) -> tuple[int, int]:
        """Number and properties of a member."""
        known = self._ids.get(name)
        if known is None:
            number, properties = _I32(), _U32()
            text = _bstr(name)
            try:
                result = _get_disp_id(self._pointer, text, 8, ctypes.byref(number))
            finally:
                _lib().SysFreeString(text)
            if result == _UNKNOWNNAME:
                raise AttributeError(f"no member {name}", name=name, obj=self)
            _check(result)
            _check(_member_properties(self._pointer, number.value, 0x7FF, ctypes.byref(properties)))
            known = self._ids[name] = (number.value, properties.value)
        return known

    def __getattr__(self, name: str) -> Any:
        if name.startswith("__"):
            raise AttributeError(name)
        number, properties = self._member(name)
        if not properties & _CAN_GET and properties & _CAN_CALL:
            return lambda *arguments: _call(self._pointer, number, _METHOD, arguments)
        try:
            return _call(self._pointer, number, _GET, ())
        except Error as error:
            if error.code != _BADPARAMCOUNT:
                raise
        return lambda *arguments: _call(self._pointer, number, _GET, arguments)

    def __setattr__(self, name: str, value: Any) -> None:
        _call(self._pointer, self._member(name)[0], _PUT, (value,))

    def __call__(self, *arguments: Any) -> Any:
        return _call(self._pointer, _VALUE, _METHOD | _GET, arguments)

    def __getitem__(self, index: Any) -> Any:
        return _call(self._pointer, _VALUE, _METHOD | _GET, (index,))

    def __len__(self) -> int:
        return int(_call(self._pointer, self._member("Count")[0], _METHOD | _GET, ()))

    def __bool__(self) -> bool:
        return True

    def __iter__(self) -> Iterator[Any]:
        answer = _invoked(self._pointer, _NEWENUM, _METHOD | _GET, ())
        walk = answer.pointer  # its reference is ours
        try:
            while True:
                item, fetched = _Variant(), _U32()
                result = _enum_next(walk, 1, ctypes.byref(item), ctypes.byref(fetched))
                _check(result)
                if result != _S_OK:
                    return
                yield _taken(item)
        finally:
            _release(walk)

    def __eq__(self, other: object) -> bool:
        return isinstance(other, Object) and other._pointer == self._pointer

    def __hash__(self) -> int:
        return hash(self._pointer)

    def __dir__(self) -> list[str]:
        names, number = [], _I32(-1)
        while _next_disp_id(self._pointer, 2, number.value, ctypes.byref(number)) == _S_OK:
            text = _P()
            _check(_member_name(self._pointer, number.value, ctypes.byref(text)))
            names.append(_taken_text(text.value))
        return names


def _invoked(pointer: int, number: int, flags: int, arguments: tuple[Any, ...]) -> _Variant:
    count = len(arguments)
    packed, inner = (_Variant * max(count, 1))(), (_Variant * max(count, 1))()
    try:
        for place, argument in enumerate(arguments):
            slot = packed[count - 1 - place]
            if isinstance(argument, Ref):
                _give(argument.value, inner[place])
                slot.pointer, slot.vt = ctypes.addressof(inner[place]), _BYREF | _VARIANT
            else:
                _give(argument, slot)
        name = _I32(_PROPERTYPUT)
        parameters = _Parameters(packed, ctypes.pointer(name) if flags & _PUT else None, count, 1 if flags & _PUT else 0)
        answer, exception, wrong = _Variant(), _Exception(), _U32()
        result = _invoke(pointer, number, ctypes.byref(_NO_ID), 0, flags, ctypes.byref(parameters),
                         ctypes.byref(answer), ctypes.byref(exception), ctypes.byref(wrong))
        for place, argument in enumerate(arguments):
            if isinstance(argument, Ref) and result == _S_OK:
                argument.value = _value(inner[place])
        if result == _EXCEPTION:
            raise _raised(exception)
        _check(result)
        return answer
    finally:
        for variant in itertools.chain(packed, inner):
            _lib().VariantClear(ctypes.byref(variant))


def _call(pointer: int, number: int, flags: int, arguments: tuple[Any, ...]) -> Any:
    return _taken(_invoked(pointer, number, flags, arguments))


def _raised(exception: _Exception) -> RunTimeError:
    code = exception.scode & 0xFFFFFFFF
    number = code & 0xFFFF if code & 0xFFFF0000 == _ERROR_FACILITY else exception.scode
    _taken_text(exception.help_file)
    return RunTimeError(number, _taken_text(exception.source), _taken_text(exception.description))


def create(name: str) -> Object:
    """A new object of a public class ("clsBVTCanvas"), or the one "Library"."""
    clsid, factory, made = _Guid.of(uuid.uuid5(_BASE, "class:" + name)), _P(), _P()
    _check(_lib().DllGetClassObject(ctypes.byref(clsid), ctypes.byref(_Guid.of(_IID_FACTORY)), ctypes.byref(factory))
           & 0xFFFFFFFF)
    try:
        result = _create_instance(_left(factory), None, ctypes.byref(_Guid.of(_IID_DISPATCHEX)), ctypes.byref(made))
    finally:
        _release(_left(factory))
    _check(result)
    return Object(_left(made))


def _object_behind(pointer: int | None) -> Any:
    """The Python object for an interface, which keeps its reference."""
    if not pointer:
        return None
    host = _HostObject.behind(pointer)
    if host is not None:
        return host
    extended = _asked(pointer, _IID_DISPATCHEX)
    return Object(extended) if extended else None


def _dispatch_of(value: Any) -> int:
    """An interface with a reference for the callee."""
    if isinstance(value, Object):
        _add_ref(value._pointer)
        return value._pointer
    return _HostObject.of(value)


# Objects of the host

class _Served:
    """A Python object behind an interface: lives while the library holds it."""

    _living: dict[int, _Served] = {}

    def __init__(self, table: ctypes.Array[Any]) -> None:
        self._count = 1
        self._memory = (_P * 1)(ctypes.addressof(table))
        self.pointer = ctypes.addressof(self._memory)
        _Served._living[self.pointer] = self

    def interfaces(self) -> tuple[uuid.UUID, ...]:
        raise NotImplementedError

    def ended(self) -> None:
        """Called when the library lets go."""

    @staticmethod
    def query(this: int, identifier: Any, answer: Any) -> int:
        if not answer:
            return _signed(_E_POINTER)
        served = _Served._living.get(this)
        asked = uuid.UUID(bytes_le=bytes(identifier[0].bytes))
        if served is None or asked not in (_IID_UNKNOWN, *served.interfaces()):
            answer[0] = None
            return _signed(_E_NOINTERFACE)
        served._count += 1
        answer[0] = this
        return _S_OK

    @staticmethod
    def add(this: int) -> int:
        served = _Served._living[this]
        served._count += 1
        return served._count

    @staticmethod
    def let_go(this: int) -> int:
        served = _Served._living[this]
        served._count -= 1
        if served._count == 0:
            del _Served._living[this]
            served.ended()
        return served._count


def _table(*functions: tuple[Callable[..., int], tuple[Any, ...]]) -> tuple[ctypes.Array[Any], list[Any]]:
    """An interface's table behind the three functions of IUnknown, and what must outlive it."""
    first: list[tuple[Callable[..., int], tuple[Any, ...]]] = [
        (_Served.query, (ctypes.POINTER(_Guid), ctypes.POINTER(_P))), (_Served.add, ()), (_Served.let_go, ())]
    callbacks = [ctypes.CFUNCTYPE(_I32, _P, *arguments)(function) for function, arguments in [*first, *functions]]
    return (_P * len(callbacks))(*[ctypes.cast(callback, _P).value for callback in callbacks]), callbacks


class _Enumerator(_Served):
    """Walks a Python iterator for the library."""

    def __init__(self, walk: Iterator[Any]) -> None:
        super().__init__(_ENUM_TABLE)
        self._walk = walk

    def interfaces(self) -> tuple[uuid.UUID, ...]:
        return (_IID_ENUM,)

    @staticmethod
    def next(this: int, count: int, items: Any, fetched: Any) -> int:
        given = 0
        try:
            walk = _Served._living[this]._walk  # type: ignore[attr-defined]
            while given < count:
                item = next(walk)
                items[given] = _Variant()
                _give(item, items[given])
                given += 1
        except StopIteration:
            pass
        except BaseException:  # nothing may leave a callback
            return _signed(_E_FAIL)
        if fetched:
            fetched[0] = given
        return _S_OK if given == count else _S_FALSE

    @staticmethod
    def refuse(*_: Any) -> int:
        return _signed(_E_NOTIMPL)


_ENUM_TABLE, _ENUM_CALLBACKS = _table(
    (_Enumerator.next, (_U32, ctypes.POINTER(_Variant), ctypes.POINTER(_U32))), (_Enumerator.refuse, (_U32,)),
    (_Enumerator.refuse, ()), (_Enumerator.refuse, (ctypes.POINTER(_P),)))


class _Missing(Exception):
    """A member that the host's object has not."""


class _HostObject(_Served):
    """A Python object as IDispatch. The same object has the same interface while the library holds it."""

    _known: dict[int, _HostObject] = {}

    def __init__(self, target: Any, names: list[str], event_sink: bool = False) -> None:
        super().__init__(_DISPATCH_TABLE)
        self.target = target
        self.event_sink = event_sink
        self.names = names  # by number, from 1

    @classmethod
    def of(cls, target: Any) -> int:
        """A reference for the caller."""
        known = cls._known.get(id(target))
        if known is not None:
            known._count += 1
            return known.pointer
        made = cls._known[id(target)] = cls(target, [])
        return made.pointer

    @classmethod
    def behind(cls, pointer: int) -> Any:
        served = cls._living.get(pointer)
        return served.target if isinstance(served, _HostObject) else None

    def interfaces(self) -> tuple[uuid.UUID, ...]:
        return (_IID_DISPATCH, _EVENTS) if self.event_sink else (_IID_DISPATCH,)

    def ended(self) -> None:
        if _HostObject._known.get(id(self.target)) is self:
            del _HostObject._known[id(self.target)]

    def number_of(self, name: str) -> int | None:
        lowered = name.lower()
        for number, known in enumerate(self.names, 1):
            if known.lower() == lowered:
                return number
        for known in dir(self.target):
            if known.lower() == lowered and not known.startswith("_"):
                self.names.append(known)
                return len(self.names)
        return None

    def answer(self, number: int, flags: int, arguments: list[Any]) -> Any:
        if number == _NEWENUM:
            return self._walk()
        if number == _VALUE:
            name = "Item" if hasattr(self.target, "Item") else "__call__"
        elif 1 <= number <= len(self.names):
            name = self.names[number - 1]
        else:
            raise _Missing
        try:
            if flags & (_PUT | _PUTREF):
                setattr(self.target, name, arguments[-1])
                return None
            member = getattr(self.target, name)
        except AttributeError as error:
            if error.name == name and error.obj is self.target:
                raise _Missing from None
            raise  # what a property's own code lacks
        return member(*arguments) if callable(member) and _is_routine(member) else member

    def _walk(self) -> Any:
        if not hasattr(self.target, "__iter__"):
            raise _Missing
        return _Enumerator(iter(self.target))

    @staticmethod
    def type_info_count(this: int, count: Any) -> int:
        count[0] = 0
        return _S_OK

    @staticmethod
    def type_info(*_: Any) -> int:
        return _signed(_E_NOTIMPL)

    @staticmethod
    def names_to_numbers(this: int, _riid: Any, names: Any, count: int, _language: int, numbers: Any) -> int:
        try:
            served = _Served._living[this]
            number = served.number_of(_wide_text(names[0]))  # type: ignore[attr-defined]
            for i in range(count):
                numbers[i] = -1
            numbers[0] = -1 if number is None else number
            return _S_OK if number is not None and count == 1 else _signed(_UNKNOWNNAME)
        except BaseException:
            return _signed(_E_FAIL)

    @staticmethod
    def invoke(this: int, number: int, _riid: Any, _language: int, flags: int, parameters: Any, result: Any,
               exception: Any, _wrong: Any) -> int:
        try:
            served = _Served._living[this]
            return _serve(served, number, flags, parameters[0], result)  # type: ignore[arg-type]
        except RunTimeError as error:
            return _tell(exception, error.number, error.source, error.description)
        except BaseException as error:
            return _tell(exception, 440, type(error).__name__, str(error))


def _is_routine(member: Any) -> bool:
    """True for what is called when it is read: methods and functions, not objects that happen to be callable."""
    return hasattr(member, "__code__") or hasattr(member, "__func__") or type(member).__name__ == "builtin_function_or_method"


def _wide_text(address: int) -> str:
    end = address
    while ctypes.c_uint16.from_address(end).value:
        end += 2
    return ctypes.string_at(address, end - address).decode("utf-16-le", "replace")


def _serve(served: _HostObject, number: int, flags: int, parameters: _Parameters, result: Any) -> int:
    variants = [parameters.arguments[i] for i in range(parameters.count - 1, -1, -1)]
    arguments = [Ref(_value(v)) if v.vt & _BYREF else _value(v) for v in variants]
    try:
        if served.event_sink and number not in range(1, len(served.names) + 1):
            return _signed(_MEMBERNOTFOUND)
        answer = served.answer(number, flags, arguments)
    except _Missing:
        return _signed(_MEMBERNOTFOUND)
    for variant, argument in zip(variants, arguments):
        if isinstance(argument, Ref):
            _put_through(variant, argument.value)
    if result:
        if isinstance(answer, _Enumerator):
            result[0].pointer, result[0].vt = answer.pointer, _UNKNOWN
        else:
            _give(answer, result[0])
    return _S_OK


def _tell(exception: Any, number: int, source: str, description: str) -> int:
    if exception:
        told = exception[0]
        told.scode = _signed(_ERROR_FACILITY + number) if 0 < number <= 0xFFFF else number
        told.source, told.description = _bstr(source), _bstr(description)
    return _signed(_EXCEPTION)


_DISPATCH_TABLE, _DISPATCH_CALLBACKS = _table(
    (_HostObject.type_info_count, (ctypes.POINTER(_U32),)), (_HostObject.type_info, (_U32, _U32, ctypes.POINTER(_P))),
    (_HostObject.names_to_numbers,
     (ctypes.POINTER(_Guid), ctypes.POINTER(_P), _U32, _U32, ctypes.POINTER(_I32))),
    (_HostObject.invoke,
     (_I32, ctypes.POINTER(_Guid), _U32, _U16, ctypes.POINTER(_Parameters), ctypes.POINTER(_Variant),
      ctypes.POINTER(_Exception), ctypes.POINTER(_U32))))


# Events

_EVENT_NAMES = ["PreAddtoUndo", "PostAddtoUndo", "PreUndo", "PostUndo", "PreRedo", "PostRedo"]


class Connection:
    """A sink's connection to a document; ends with `close`, or at the end of a `with` block."""

    def __init__(self, point: int, cookie: int) -> None:
        self._point: int | None = point
        self._cookie = cookie

    def close(self) -> None:
        """Ends the connection; a second call does nothing. May be called by the sink itself."""
        if self._point is None:
            return
        point, self._point = self._point, None
        _unadvise(point, self._cookie)
        _release(point)

    def __enter__(self) -> Connection:
        return self

    def __exit__(self, *_: object) -> None:
        self.close()


def connect(document: Object, sink: Any) -> Connection:
    """Sends a document's events to the methods of `sink` that bear their names; those it lacks are passed over.

    `PreAddtoUndo(cancel)`, `PreUndo(cancel)` and `PreRedo(cancel)` are given a Ref: putting True into its `value` stops
    the step. `PostAddtoUndo(record)`, `PostUndo()` and `PostRedo()` tell that it is over.
    """
    container = _asked(document._pointer, _IID_CONTAINER)
    if container is None:
        raise Error(_E_NOINTERFACE, "the object has no events")
    point, cookie = _P(), _U32()
    _check(_find_connection_point(container, ctypes.byref(_Guid.of(_EVENTS)), ctypes.byref(point)))
    _release(container)
    served = _HostObject(sink, list(_EVENT_NAMES), event_sink=True)
    try:
        _check(_advise(_left(point), served.pointer, ctypes.byref(cookie)))
    finally:
        _Served.let_go(served.pointer)
    return Connection(_left(point), cookie.value)
