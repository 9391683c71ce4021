"""Reads a file as strict JSON and validates it: check_json.py SCHEMA FILE. Exit code 1 with the reason."""
import json
import sys

import jsonschema


def refuse(text):
    raise ValueError("not strict JSON: " + text)


with open(sys.argv[1], encoding="utf-8") as schema_file, open(sys.argv[2], encoding="utf-8") as report_file:
    schema = json.load(schema_file)
    report = json.load(report_file, parse_constant=refuse)
jsonschema.Draft202012Validator(schema).validate(report)
