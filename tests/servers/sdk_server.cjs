// A server made by the protocol's own libraries: with a handshake alone ("legacy", by the first
// of them), without one alone ("modern") or either ("both", by the second).
const path = require("node:path");
const from = require("node:module").createRequire(path.join(process.env.SERVERS, "here.js"));

const era = process.argv[2];
const z = from("zod");
const second = "@modelcontextprotocol/server";
const { McpServer, ResourceTemplate } =
  era === "legacy" ? from("@modelcontextprotocol/sdk/server/mcp.js") : from(second);

function server() {
  const made = new McpServer({ name: "sums", version: "1.2.3" }, { instructions: "Adds." });
  const input = { a: z.number().describe("The first"), b: z.number().default(1) };
  const nothing = () => ({});
  made.registerTool("add", { title: "Add", description: "Adds two numbers",
    inputSchema: era === "legacy" ? input : z.object(input) }, nothing);
  made.registerPrompt("explain", { description: "Explains a sum" }, nothing);
  made.registerResource("last", "sums://last", { description: "The last sum" }, nothing);
  const template = new ResourceTemplate("sums://{number}", { list: undefined });
  made.registerResource("any", template, { description: "Any sum" }, nothing);
  return made;
}

if (era === "legacy") {
  const { StdioServerTransport } = from("@modelcontextprotocol/sdk/server/stdio.js");
  server().connect(new StdioServerTransport());
} else {
  from(`${second}/stdio`).serveStdio(server, { legacy: era === "both" ? "serve" : "reject" });
}
