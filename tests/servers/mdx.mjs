// What a page in MDX shows, as HTML. The file's name follows the place of the packages.
import fs from "node:fs";
import path from "node:path";
import { pathToFileURL } from "node:url";

const [modules, page] = process.argv.slice(2);
const compiler = path.resolve(modules, "@mdx-js/mdx/index.js");
const { evaluate } = await import(pathToFileURL(compiler));

const entities = { "&": "&amp;", "<": "&lt;", ">": "&gt;" };
const escaped = (text) => String(text).replace(/[&<>]/g, (sign) => entities[sign]);

function html(child) {
  if (Array.isArray(child)) return child.map(html).join("");
  return typeof child === "object" ? child.html : escaped(child ?? "");
}

function jsx(type, { children }) {
  if (typeof type === "function") return type({ children });
  return { html: `<${type}>${html(children)}</${type}>` };
}

const Fragment = ({ children }) => ({ html: html(children) });
const made = await evaluate(fs.readFileSync(page), { jsx, jsxs: jsx, Fragment });
process.stdout.write(made.default({}).html);
