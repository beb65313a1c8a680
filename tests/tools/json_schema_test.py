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


def is_float(field):
    return "anyOf" in field and any(
        alt.get("type") == "number" for alt in field["anyOf"])


def is_enum(field):
    return "anyOf" in field and any("enum" in alt and isinstance(
        alt["enum"][0], str) and alt["enum"][0].startswith("k")
        for alt in field["anyOf"])


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

    def test_broken_files_are_refused(self):
        # (what, mutation, whether the library refuses it too); a mutation
        # returns False where the table has no such field.
        def unknown_top_key(doc, schema):
            doc["no_such_field"] = 1

        def unknown_nested_key(doc, schema):
            found = first_field(schema, doc,
                                lambda v, f: isinstance(v, dict))
            found[0][found[1]]["no_such_field"] = 1

        def string_for_integer(doc, schema):
            found = first_field(schema, doc, lambda v, f: isinstance(v, int)
                                and f.get("type") == "integer")
            found[0][found[1]] = "twelve"

        def numeric_string_for_integer(doc, schema):
            found = first_field(schema, doc,
                                lambda v, f: isinstance(v, int)
                                and not isinstance(v, bool))
            found[0][found[1]] = str(found[0][found[1]])

        def string_for_float(doc, schema):
            found = first_field(schema, doc, lambda v, f: is_float(f))
            if not found:
                return False
            found[0][found[1]] = "nan"

        def float_beyond_range(doc, schema):
            found = first_field(schema, doc, lambda v, f: is_float(f))
            if not found:
                return False
            found[0][found[1]] = 3.5e38

        def list_over_capacity(doc, schema):
            found = first_field(schema, doc, lambda v, f: "maxItems" in f
                                and len(v) == f["maxItems"])
            found[0][found[1]].append(copy.deepcopy(found[0][found[1]][-1]))

        def int32_out_of_range(doc, schema):
            found = first_field(schema, doc, lambda v, f: isinstance(v, int)
                                and f.get("maximum") == 2**31 - 1)
            found[0][found[1]] = 2**31

        def narrow_out_of_range(doc, schema):
            found = first_field(schema, doc, lambda v, f: isinstance(v, int)
                                and f.get("type") == "integer"
                                and f.get("maximum", 2**31) < 2**31 - 1)
            if not found:
                return False
            found[0][found[1]] = found[2]["maximum"] + 1

        def wrong_enum_name(doc, schema):
            found = first_field(schema, doc, lambda v, f: is_enum(f))
            if not found:
                return False
            found[0][found[1]] = "kQAWBFrameSummaryTypeSunset"

        def enum_name_in_other_case(doc, schema):
            found = first_field(schema, doc, lambda v, f: is_enum(f))
            if not found:
                return False
            found[0][found[1]] = found[0][found[1]].lower()

        cases = [
            (unknown_top_key, True), (unknown_nested_key, True),
            (string_for_integer, True), (numeric_string_for_integer, False),
            (string_for_float, True), (float_beyond_range, True),
            (list_over_capacity, False), (int32_out_of_range, True),
            (narrow_out_of_range, False), (wrong_enum_name, True),
            (enum_name_in_other_case, True),
        ]
        exercised = set()
        for mutation, library_too in cases:
            for table in TABLES:
                document = copy.deepcopy(self.full[table])
                if mutation(document, self.schemas[table]) is False:
                    continue
                exercised.add(mutation.__name__)
                with self.subTest(mutation=mutation.__name__, table=table):
                    self.assert_refused(table, document, library_too)
        self.assertEqual(exercised, {m.__name__ for m, _ in cases})

    def test_values_protobuf_accepts_pass(self):
        # Non-finite floats as protobuf spells them, the largest float as
        # printed, and enum values by number.
        for table in TABLES:
            schema = self.schemas[table]
            for value in ("NaN", "Infinity", "-Infinity", 3.4028235e38,
                          -3.4028235e38):
                document = copy.deepcopy(self.full[table])
                found = first_field(schema, document,
                                    lambda v, f: is_float(f))
                if not found:
                    continue
                found[0][found[1]] = value
                with self.subTest(table=table, value=value):
                    self.assertEqual(self.errors(table, document), [])
                    self.assertFalse(self.library_refuses(table, document))
            document = copy.deepcopy(self.full[table])
            found = first_field(schema, document, lambda v, f: is_enum(f))
            if found:
                found[0][found[1]] = 3
                with self.subTest(table=table, value="enum number"):
                    self.assertEqual(self.errors(table, document), [])
                    self.assertFalse(self.library_refuses(table, document))


if __name__ == "__main__":
    TOOL = sys.argv[1].split()
    WORK = sys.argv[2]
    unittest.main(argv=sys.argv[:1], verbosity=1)
