"""Pretty printers of gdb for Value, Decimal, Date and Ref.

In gdb: source tools/gdb/kebu_printers.py
The program has to be compiled with -g; with -g1 gdb does not know the types.
"""

import gdb
import gdb.printing


def decimal_text(decimal):
    """The digits of a Decimal, with the zeros that its scale has."""
    limbs = decimal["mantissa_"]["_M_elems"]
    number = sum(int(limbs[i]) << (32 * i) for i in range(3))
    scale = int(decimal["scale_"])
    digits = str(number).rjust(scale + 1, "0")
    if scale > 0:
        digits = digits[:-scale] + "." + digits[-scale:]
    return ("-" if decimal["negative_"] else "") + digits


def date_text(date):
    """yyyy-mm-dd, with the time of day when there is one."""

    def part(name):
        return int(date[name])

    text = "%04d-%02d-%02d" % (part("year"), part("month"), part("day"))
    time = (part("hour"), part("minute"), part("second"), part("millisecond"))
    return text + " %02d:%02d:%02d.%03d" % time if any(time) else text


def string_text(string):
    """A std::string in quotes, also where the library's own printers are not loaded."""
    length = int(string["_M_string_length"])
    text = string["_M_dataplus"]["_M_p"].string("utf-8", "replace", length)
    return '"' + text.replace("\\", "\\\\").replace('"', '\\"') + '"'


def object_text(shared):
    """The class and address behind a std::shared_ptr, or "nothing"."""
    pointer = shared["_M_ptr"]
    if int(pointer) == 0:
        return "nothing"
    pointer = pointer.cast(pointer.type.target().strip_typedefs().pointer())
    pointer = pointer.cast(pointer.dynamic_type)
    return "%s at %#x" % (pointer.type.target(), int(pointer))


# The alternatives of Value::Storage, by the last part of their type's name.
VALUE_TEXTS = {
    "monostate": lambda _: "empty",
    "Null": lambda _: "null",
    "bool": lambda value: "true" if value else "false",
    "short": lambda value: "%d (16 bits)" % int(value),
    "int": lambda value: "%d" % int(value),
    "Decimal": lambda value: decimal_text(value) + " (decimal)",
    "Date": date_text,
}


class ValuePrinter:
    """kebu::Value: its content, and the kind where the content does not tell it."""

    def __init__(self, value):
        self.value = value

    def to_string(self):
        storage = self.value["storage_"]
        variant = storage.type.strip_typedefs()
        index = int(storage["_M_index"])
        try:
            kind = variant.template_argument(index)
        except (RuntimeError, gdb.error):
            return "valueless"
        # The alternatives share the address of the union that they are in.
        content = storage["_M_u"].address.cast(kind.pointer()).dereference()
        name = str(kind.strip_typedefs())
        if "basic_string" in name:
            return string_text(content)
        if "shared_ptr" in name:
            return "object " + object_text(content)
        return VALUE_TEXTS[name.split("::")[-1]](content)


class DecimalPrinter:
    """kebu::Decimal as digits."""

    def __init__(self, value):
        self.value = value

    def to_string(self):
        return decimal_text(self.value)


class DatePrinter:
    """kebu::Date."""

    def __init__(self, value):
        self.value = value

    def to_string(self):
        return date_text(self.value)


class RefPrinter:
    """kebu::Ref: the class and address of its object."""

    def __init__(self, value):
        self.value = value

    def to_string(self):
        return "Ref to " + object_text(self.value["object_"])


def printers():
    collection = gdb.printing.RegexpCollectionPrettyPrinter("kebu")
    collection.add_printer("Value", "^kebu::Value$", ValuePrinter)
    collection.add_printer("Decimal", "^kebu::Decimal$", DecimalPrinter)
    collection.add_printer("Date", "^kebu::Date$", DatePrinter)
    collection.add_printer("Ref", "^kebu::Ref<.*>$", RefPrinter)
    return collection


gdb.printing.register_pretty_printer(None, printers(), replace=True)
