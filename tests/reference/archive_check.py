"""Independent reading of a keyed archive with Python's own plistlib.

Usage: archive_check.py FILE
Prints JSON describing what a keyed unarchiver would see: the archive header,
the root array's class, and for every record its class chain, its keys in file
order and each value's type and value. Integers are printed as decimal strings
and reals as float.hex() strings so that no precision is lost in transit.
"""
import json
import plistlib
import sys


def number(value):
    if isinstance(value, bool):
        raise TypeError("boolean where a number belongs")
    if isinstance(value, int):
        return {"type": "int", "value": str(value)}
    if isinstance(value, float):
        return {"type": "float", "value": value.hex()}
    raise TypeError("not a number: %r" % (value,))


def main():
    with open(sys.argv[1], "rb") as f:
        data = f.read()
    if not data.startswith(b"bplist00"):
        raise SystemExit("not a binary property list")
    archive = plistlib.loads(data, fmt=plistlib.FMT_BINARY)
    objects = archive["$objects"]

    def deref(uid):
        assert isinstance(uid, plistlib.UID), "expected a UID, got %r" % (uid,)
        return objects[uid.data]

    def class_of(obj):
        entry = deref(obj["$class"])
        return entry["$classname"], entry["$classes"]

    def value(uid):
        if uid.data == 0:
            return {"type": "null"}
        obj = deref(uid)
        if isinstance(obj, str):
            return {"type": "str", "value": obj}
        if isinstance(obj, dict):
            name, classes = class_of(obj)
            elements = [number(deref(u)) for u in obj["NS.objects"]]
            return {"type": "array", "class": name, "classes": classes,
                    "elementTypes": sorted({e["type"] for e in elements}),
                    "values": [e["value"] for e in elements]}
        return number(obj)

    # Every object dictionary names its class by UID, as the archiver writes.
    object_dicts = [o for o in objects if isinstance(o, dict) and "$classname" not in o]
    every_dict_has_class = all(isinstance(o.get("$class"), plistlib.UID) for o in object_dicts)

    root = deref(archive["$top"]["root"])
    root_classes = class_of(root)[1]
    records = []
    for uid in root["NS.objects"]:
        rec = deref(uid)
        name, classes = class_of(rec)
        records.append({
            "classname": name,
            "classes": classes,
            "keys": [k for k in rec.keys() if k != "$class"],
            "fields": {k: value(v) for k, v in rec.items() if k != "$class"},
        })
    print(json.dumps({
        "archiver": archive["$archiver"],
        "version": archive["$version"],
        "versionIsInt": type(archive["$version"]) is int,
        "topKeys": sorted(archive["$top"].keys()),
        "firstObject": objects[0],
        "everyDictHasClass": every_dict_has_class,
        "rootClasses": root_classes,
        "records": records,
    }))


main()
