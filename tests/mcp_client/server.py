"""A server that does what the Python of its first argument says, in the words below."""

import json
import os
import signal
import subprocess
import sys
import time

sys.stdout.reconfigure(encoding="utf-8", line_buffering=True)

CLIENT = {"name": "registry-docs", "version": os.environ["VERSION"]}
META = {"io.modelcontextprotocol/protocolVersion": "2026-07-28",
        "io.modelcontextprotocol/clientCapabilities": {}, "io.modelcontextprotocol/clientInfo": CLIENT}
INFO = {"io.modelcontextprotocol/serverInfo": {"name": "s"}}
LISTS = {"tools/list": "tools", "prompts/list": "prompts", "resources/list": "resources",
         "resources/templates/list": "resourceTemplates"}
common = {}  # what the params of every request hold


def hear(**expected):
    """Reads a message, which must be the expected one, with any id if none is expected."""
    global heard
    heard = json.loads(sys.stdin.readline())
    assert heard.pop("jsonrpc") == "2.0", heard
    assert heard == {"id": heard.get("id"), **expected} or heard == expected, heard


def answer(**members):
    print(json.dumps({"jsonrpc": "2.0", "id": heard["id"], **members}))


def refuse(message="no", code=-32601, **data):
    answer(error={"code": code, "message": message, "data": data})


def begin():
    hear(method="initialize", params={
        "protocolVersion": "2025-11-25", "capabilities": {}, "clientInfo": CLIENT})


def greet(*capabilities, **more):
    begin()
    announced = {"capabilities": {name: {} for name in capabilities}} if capabilities else {}
    answer(result={"protocolVersion": "1999-12-31", **announced, **more})
    hear(method="notifications/initialized")


def discover(*capabilities, **more):
    """Answers as a server of the modern era does to its first request but `initialize`."""
    common["_meta"] = META
    hear(method="server/discover", params=common)
    answer(result={"resultType": "complete", "supportedVersions": ["2026-07-28"], "_meta": INFO,
                   "capabilities": {name: {} for name in capabilities}, **more})


def asked(method="tools/list", **params):
    hear(method=method, params={**params, **common})


def page(entries, more="", method="tools/list", **params):
    """Answers with the bytes of the entries, and of the members behind them."""
    asked(method, **params)
    print(f'{{"id": {heard["id"]} ,\t"result":{{"_meta":{{"tools":0}},'
          f'"{LISTS[method]}":{entries}{more}}} }}\r')


exec(sys.argv[1])
