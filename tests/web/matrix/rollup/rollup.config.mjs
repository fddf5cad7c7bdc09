// Rollup finds packages by its own plugin for that, and needs nothing else for the element.
import {nodeResolve} from '@rollup/plugin-node-resolve';

export default {
  input: 'main.js',
  output: {file: 'dist/main.js', format: 'es'},
  plugins: [nodeResolve()],
};
