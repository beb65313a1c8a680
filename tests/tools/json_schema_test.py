#!/usr/bin/env python3
"""The tables' JSON Schemas held to an independent validator (Debian's
python3-jsonschema, draft 2020-12) and to the tool's own `validate`.

  json_schema_test.py TOOL WORK_DIR

Every file `export` writes, full and compact, of the containers that
together hold every distinct built-in table and of the defaults, must pass
its schema. Broken files must fail it, and where the library refuses them
too, `validate` must agree; where the schema is deliberately stricter than
the library (lists over capacity, narrow integers, quoted numbers), only the
schema is asked.
"""

import copy
import json
import os
import shutil
import subprocess
import sys
import unittest

from jsonschema import Draft202012Validator

TOOL = None
WORK = None
TABLES = ("basic", "advance", "color", "feature")


def run(*args, check=True):
    result = subprocess.run([*TOOL, *args], capture_output=True, text=True)
    if check and result.returncode != 0:
        raise AssertionError(f"{args}: exit {result.returncode}\n{result.stderr}")
    return result


def schema_of(table):
    return json.loads(run("schema", table).stdout)


def covering_keys():
    """Keys of AWB containers that between them hold every distinct table."""
    registrations = json.loads(run("list", "--json").stdout)
    seen, keys = set(), []
    for registration in registrations:
        if registration["node"] != "awb":
            continue
        labels = {(t, v["label"]) for t, v in registration["tables"].items()}
        if labels - seen:
            seen |= labels
            k = registration["key"]
            keys.append(",".join(str(k[f]) for f in (
                "use_case", "sensor_mode", "camera_position", "lens_type",
                "reserved")))
    return keys


def resolve(schema, node):
    """Follows $ref (only local ones occur) to the node's target."""
    while "$ref" in node:
        target = schema
        for part in node["$ref"].removeprefix("#/").split("/"):
            target = target[part]
        node = target
    return node


def fields(schema, document):
    """(object, key, field schema) for every member of every object in the
    document, the field schema with its $ref followed."""
    stack = [(document, resolve(schema, schema))]
    while stack:
        value, node = stack.pop()
        node = resolve(schema, node)
        if isinstance(value, dict):
            for key, member in value.items():
                field = resolve(schema, node["properties"][key])
                yield value, key, field
                stack.append((member, field))
        elif isinstance(value, list):
            for element in value:
                stack.append((element, node.get("items", {})))


def first_field(schema, document, predicate):
    for container, key, field in fields(schema, document):
        if predicate(container[key], field):
            return container, key, field
    return None


# Pickers of a field by its value and its (resolved) schema.
def INTEGER(value, field):
    return (isinstance(value, int) and not isinstance(value, bool)
            and field.get("type") == "integer")


def INT32(value, field):
    return INTEGER(value, field) and field.get("maximum") == 2**31 - 1


def NARROW(value, field):
    return INTEGER(value, field) and field["maximum"] < 2**31 - 1


def FLOAT(value, field):
    return any(alt.get("type") == "number" for alt in field.get("anyOf", []))


def ENUM(value, field):
    return isinstance(value, str) and any(
        value in alt.get("enum", []) for alt in field.get("anyOf", []))


def FULL_LIST(value, field):
    return isinstance(value, list) and len(value) == field.get("maxItems")


class JsonSchemaTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        shutil.rmtree(WORK, ignore_errors=True)
        os.makedirs(WORK)
        cls.schemas = {t: schema_of(t) for t in TABLES}
        cls.validators = {t: Draft202012Validator(s)
                          for t, s in cls.schemas.items()}
        cls.exports = []
        sources = [["--key", k] for k in covering_keys()] + [["--defaults"]]
        for n, source in enumerate(sources):
            for form in ([], ["--compact"]):
                directory = os.path.join(WORK, f"export{n}{''.join(form)}")
                run("export", *source, *form, "--schemas", "-o", directory)
                cls.exports.append(directory)
        cls.full = {t: cls.load(os.path.join(cls.exports[0], f"{t}.json"))
                    for t in TABLES}

    @staticmethod
    def load(path):
        with open(path, encoding="utf-8") as f:
            return json.load(f)

    def errors(self, table, document):
        return list(self.validators[table].iter_errors(document))

    def library_refuses(self, table, document):
        path = os.path.join(WORK, f"probe-{table}.json")
        with open(path, "w", encoding="utf-8") as f:
            json.dump(document, f)
        result = run("validate", "--json", "--table", table, path,
                     check=False)
        return any(finding["rule"] == "rejected"
                   for finding in json.loads(result.stdout))

    def assert_refused(self, table, document, library_too):
        self.assertTrue(self.errors(table, document), "schema accepted it")
        if library_too:
            self.assertTrue(self.library_refuses(table, document),
                            "the library accepted what the schema refused")

    def test_schemas_are_valid_draft_2020_12(self):
        for table, schema in self.schemas.items():
            with self.subTest(table=table):
                Draft202012Validator.check_schema(schema)
                self.assertEqual(schema["$schema"],
                                 "https://json-schema.org/draft/2020-12/schema")

    def test_export_writes_the_schemas_beside_the_files(self):
        for directory in self.exports:
            for table in TABLES:
                with self.subTest(directory=directory, table=table):
                    self.assertEqual(
                        self.load(os.path.join(directory,
                                               f"{table}.schema.json")),
                        self.schemas[table])

    def test_every_exported_file_passes(self):
        self.assertGreaterEqual(len(self.exports), 6)
        for directory in self.exports:
            for table in TABLES:
                with self.subTest(directory=directory, table=table):
                    document = self.load(os.path.join(directory,
                                                      f"{table}.json"))
                    self.assertEqual(self.errors(table, document), [])

    def test_camel_case_names_pass_like_the_library(self):
        def camel(value):
            if isinstance(value, dict):
                return {k.split("_")[0] + "".join(
                    w[:1].upper() + w[1:] for w in k.split("_")[1:]): camel(v)
                        for k, v in value.items()}
            if isinstance(value, list):
                return [camel(v) for v in value]
            return value
        for table in TABLES:
            with self.subTest(table=table):
                document = camel(self.full[table])
                self.assertEqual(self.errors(table, document), [])
                self.assertFalse(self.library_refuses(table, document))

    def mutated(self, table, which, new_value):
        """A copy of the table's full export with the first field `which`
        picks set to new_value(old value, field schema); None if no field
        of the table qualifies."""
        document = copy.deepcopy(self.full[table])
        found = first_field(self.schemas[table], document, which)
        if not found:
            return None
        container, key, field = found
        container[key] = new_value(container[key], field)
        return document

    def test_broken_files_are_refused(self):
        # (what, which field, its new value, whether the library refuses
        # it too)
        cases = [
            ("unknown nested key", lambda v, f: isinstance(v, dict),
             lambda old, f: {**old, "no_such_field": 1}, True),
            ("string for an integer", INTEGER, lambda old, f: "twelve", True),
            ("integer as a string", INTEGER, lambda old, f: str(old), False),
            ("string for a float", FLOAT, lambda old, f: "nan", True),
            ("float beyond the range", FLOAT, lambda old, f: 3.5e38, True),
            ("list over capacity", FULL_LIST, lambda old, f: old + old[-1:],
             False),
            ("int32 out of range", INT32, lambda old, f: 2**31, True),
            ("narrow integer out of range", NARROW,
             lambda old, f: f["maximum"] + 1, False),
            ("wrong enum name", ENUM,
             lambda old, f: "kQAWBFrameSummaryTypeSunset", True),
            ("enum name in other case", ENUM, lambda old, f: old.lower(),
             True),
        ]
        exercised = set()
        for table in TABLES:
            document = copy.deepcopy(self.full[table])
            document["no_such_field"] = 1
            with self.subTest(mutation="unknown key", table=table):
                self.assert_refused(table, document, library_too=True)
            for what, which, new_value, library_too in cases:
                document = self.mutated(table, which, new_value)
                if document is None:
                    continue
                exercised.add(what)
                with self.subTest(mutation=what, table=table):
                    self.assert_refused(table, document, library_too)
        self.assertEqual(exercised, {case[0] for case in cases})

    def test_values_protobuf_accepts_pass(self):
        # Non-finite floats as protobuf spells them, the largest float as
        # printed, and enum values by number.
        cases = [(FLOAT, value) for value in (
            "NaN", "Infinity", "-Infinity", 3.4028235e38, -3.4028235e38)]
        cases.append((ENUM, 3))
        for table in TABLES:
            for which, value in cases:
                document = self.mutated(table, which, lambda old, f: value)
                if document is None:
                    continue
                with self.subTest(table=table, value=value):
                    self.assertEqual(self.errors(table, document), [])
                    self.assertFalse(self.library_refuses(table, document))


if __name__ == "__main__":
    TOOL = sys.argv[1].split()
    WORK = sys.argv[2]
    unittest.main(argv=sys.argv[:1], verbosity=1)
