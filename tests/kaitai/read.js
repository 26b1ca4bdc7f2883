// Reads images by a Kaitai Struct description: read.js KSY IMAGE... Prints JSON: the description's enumerations, and for
// each image its fields by name in lower case, with the offset in the file and the number, or the bytes in hexadecimal.
const fs = require('fs');
const KaitaiStream = require('kaitai-struct/KaitaiStream');
const compiler = require('kaitai-struct-compiler');
const YAML = require('yaml');

const plain = (value) => (value instanceof Uint8Array ? Buffer.from(value).toString('hex') : Number(value));

function take(fields, path, part) {
  // The compiler's debug mode notes where each field stands; names with _ are of what is read on demand.
  for (const [name, { start, ioOffset }] of Object.entries(part._debug)) {
    if (name.startsWith('_')) continue;
    const value = part[name];
    if (value._debug) take(fields, `${path}${name}.`, value);
    else fields[(path + name).toLowerCase()] = [ioOffset + start, plain(value)];
  }
  return fields;
}

async function main([description, ...names]) {
  const files = await compiler.compile('javascript', YAML.parse(fs.readFileSync(description, 'utf8')), null, true);
  fs.writeFileSync(`${__dirname}/Ruhx.js`, files['Ruhx.js']);
  const { Ruhx } = require('./Ruhx.js');
  const images = names.map((name) => {
    const bytes = Uint8Array.from(fs.readFileSync(name));  // in a buffer of its own, so that offsets are the file's
    const image = new Ruhx(new KaitaiStream(bytes.buffer));
    image._read();
    const fields = take({ lid: [image.ofsLid, plain(image.lid)] }, '', image);
    return image.lidHeader ? take(fields, 'lidHeader.', image.lidHeader) : fields;
  });
  console.log(JSON.stringify({ enums: Object.entries(Ruhx).filter(([, values]) => Object.isFrozen(values)), images }));
}

main(process.argv.slice(2));
