import vue from '@vitejs/plugin-vue';

const isCustomElement = (tag) => tag === 'zolt20-map-control';

export default {plugins: [vue({template: {compilerOptions: {isCustomElement}}})]};
